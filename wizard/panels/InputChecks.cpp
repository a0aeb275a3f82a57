#include "wizard/panels/InputChecks.h"

#include "common/Numbers.h"
#include "common/RunTimeError.h"
#include "common/Text.h"
#include "process/FolderCheck.h"
#include "wizard/controls/MessageBoxes.h"
#include "wizard/form/ServerKind.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

// The four numbers of an IP address without the blanks around them; nothing when it has not
// exactly four parts or one of them is not a number. No range is checked.
std::optional<std::string> normaliseIp(std::string_view text) {
    std::string normal;
    int parts = 0;
    std::optional<std::string_view> rest = text;
    while (const auto part = takePart(rest, ".")) {
        const std::string_view number = trim(*part);
        if (++parts > 4 || !isNumeric(number)) return std::nullopt;
        if (parts > 1) normal += '.';
        normal += number;
    }
    if (parts != 4) return std::nullopt;
    return normal;
}

}  // namespace

InputChecks::InputChecks(frmWebConfig& form, FolderCheck& folderCheck, MessageBoxes& messageBoxes)
    : form_(form), folderCheck_(folderCheck), messageBoxes_(messageBoxes) {}

bool InputChecks::pass(Check check) {
    switch (check) {
        case Check::Folders: return foldersPass();
        case Check::Website: return websitePasses();
        case Check::None: break;
    }
    return true;
}

bool InputChecks::foldersPass() {
    const ServerKind* kind = chosenServerKind(form_);
    if (kind == nullptr) return true;

    // Where the wizard makes the scripts folder itself, only its parent must exist.
    return folderPasses(form_.*kind->home.box, &FolderCheck::wcpCheckFolderPath) &&
           folderPasses(form_.*kind->scripts.box, kind->makesScriptsFolder
                                                      ? &FolderCheck::wcpCheckParentFolderPath
                                                      : &FolderCheck::wcpCheckFolderPath);
}

bool InputChecks::folderPasses(TextBox& box, FolderTest test) {
    try {
        return (folderCheck_.*test)(box) == 0 || refuse(box);
    } catch (const RunTimeError& failure) {
        if (failure.number() != static_cast<int>(ErrorNumber::InvalidProcedureCall)) throw;
    }
    messageBoxes_.information("\"" + box.text() +
                              "\" cannot be used. Please enter folder's full path name, such as "
                              "C:\\Inetpub\\scripts.");
    return refuse(box);
}

bool InputChecks::websitePasses() {
    const bool ip = ipPasses(form_.txtWebsiteIP);
    const bool port = portPasses(form_.txtWebsitePort);
    if (!ip) return refuse(form_.txtWebsiteIP);
    return port || refuse(form_.txtWebsitePort);
}

// Brings the user back to the field.
bool InputChecks::refuse(TextBox& box) {
    form_.setFocus(box);
    return false;
}

bool InputChecks::ipPasses(TextBox& box) {
    const std::string text(trim(box.text()));
    if (text.empty()) {
        box.setText(text);
        return true;
    }
    const auto normal = normaliseIp(text);
    if (!normal) {
        messageBoxes_.information("The Web site IP address is incorrect.");
        return false;
    }
    box.setText(*normal);
    return true;
}

bool InputChecks::portPasses(TextBox& box) {
    const std::string text(trim(box.text()));
    if (!text.empty() && !isNumeric(text)) {
        messageBoxes_.information("The Web site Port is incorrect.");
        return false;
    }
    box.setText(text);
    return true;
}

}  // namespace kv
