#include "process/InstallationSettings.h"

#include "common/FileSystem.h"
#include "common/Numbers.h"
#include "common/RunTimeError.h"
#include "common/Text.h"
#include "config/PropertyNames.h"
#include "config/modKvIOCfg.h"
#include "process/Existence.h"
#include "wizard/form/ServerKind.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"

namespace kv {
namespace {

// "0" for the site root, "1" for "/kv"; empty when neither is chosen.
std::string urlStyleCode(const frmWebConfig& form) {
    if (form.optUrlDefault.value()) return "0";
    return form.optUrlKv.value() ? "1" : "";
}

}  // namespace

void wcpConfigHeaderSet(CfgHeader& header, std::int32_t type, std::int16_t propertyCount,
                        std::int16_t rowCount) {
    header.fill("0");
    header[kHeaderType] = std::to_string(type);
    header[kHeaderVersion] = InstallFileVersion;
    header[kHeaderPropertyCount] = std::to_string(propertyCount);
    header[kHeaderRowCount] = std::to_string(rowCount);
}

InstallationSettings::InstallationSettings(const frmWebConfig& form, WizardState& state,
                                           modKvIOCfg& configuration, FileSystem& fileSystem)
    : form_(form), state_(state), configuration_(configuration), fileSystem_(fileSystem) {}

int InstallationSettings::wcpConfigInstallWriteNew(const std::string& productFolder,
                                                   const std::string& homeFolder,
                                                   const std::string& scriptsFolder) {
    const std::int16_t count = checkedInt16(state_.InstallEntryCount + 1);
    state_.InstallEntryCount = count;
    const std::int16_t rowCount = checkedInt16(std::int64_t{count} * kInstallColumns);

    std::vector<std::string> data(static_cast<std::size_t>(rowCount) + 1);
    const std::size_t last = static_cast<std::size_t>(count) - 1;
    for (std::size_t n = 0; n < last; ++n)
        placeEntry(elementAt(state_.InstallEntries, static_cast<std::ptrdiff_t>(n)), n, data);
    placeEntry(newEntry(productFolder, homeFolder, scriptsFolder), last, data);
    return write(installationFolder(), data, rowCount, OldBytes::Stay);
}

int InstallationSettings::wcpConfigInstallWriteModify(const std::string& productFolder,
                                                      const std::string& homeFolder,
                                                      const std::string& scriptsFolder) {
    std::vector<std::string> data(kInstallColumns + 1);
    placeEntry(newEntry(productFolder, homeFolder, scriptsFolder), 0, data);
    return write(installationFolder(), data, kInstallColumns, OldBytes::Go);
}

int InstallationSettings::wcpConfigInstallWriteDelete() {
    return write(installationFolder(), std::vector<std::string>(2), 0, OldBytes::Go);
}

int InstallationSettings::wcpConfigInstallWriteScripts(const std::string& homeFolder,
                                                       const std::string& scriptsFolder) {
    const std::string folder = joinPath(scriptsFolder, "kv", "kvi");
    // A file whose name is spelt otherwise is overwritten as it is.
    const bool there = !wcpFolderMissing(fileSystem_, folder, "kvi.cfg");
    return write(folder, {homeFolder + "\\", ""}, 1, there ? OldBytes::Go : OldBytes::Stay);
}

InstallEntry InstallationSettings::newEntry(const std::string& productFolder,
                                            const std::string& homeFolder,
                                            const std::string& scriptsFolder) const {
    const ServerKind* kind = chosenServerKind(form_);
    InstallEntry entry;
    entry.fields[kEntryHomeFolder] = homeFolder + "\\";
    entry.fields[kEntryScriptsFolder] = scriptsFolder + "\\";
    entry.fields[kEntryProductFolder] = productFolder + "\\";
    if (kind != nullptr) entry.fields[kEntryServerKind] = kind->code;
    entry.fields[kEntryUrlStyle] = urlStyleCode(form_);
    entry.fields[kEntryWebsiteIP] = trim(form_.txtWebsiteIP.text());
    entry.fields[kEntryWebsitePort] = trim(form_.txtWebsitePort.text());
    return entry;
}

std::string InstallationSettings::installationFolder() const {
    return joinPath(state_.AppPath, "kvi");
}

// An old record is emptied where it lies, by the opening that then writes it: whoever else has the
// file open either lets the wizard do both or keeps it from both. A deleted file would keep its
// name until the last program closes it, and take the new record with it.
int InstallationSettings::write(const std::string& folder, const std::vector<std::string>& data,
                                std::int16_t rowCount, OldBytes oldBytes) {
    wcpConfigHeaderSet(state_.CfgHeaderValues, static_cast<std::int32_t>(FileType::Install), 1,
                       rowCount);
    return configuration_.iocCfgWriteFile(folder, "kvi", "cfg", state_.CfgHeaderValues,
                                          state_.CfgPropertyValues, data, false, oldBytes);
}

}  // namespace kv
