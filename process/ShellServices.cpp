#include "process/ShellServices.h"

#include "common/RunTimeError.h"
#include "common/Shell.h"
#include "common/Text.h"
#include "process/Existence.h"
#include "wizard/controls/Form.h"
#include "wizard/form/Texts.h"

namespace kv {
namespace {

constexpr int kShowDefault = 10;          // SW_SHOWDEFAULT
constexpr unsigned kOnlyFileFolders = 1;  // BIF_RETURNONLYFSDIRS

}  // namespace

ShellServices::ShellServices(Shell& shell, FileSystem& fileSystem)
    : shell_(shell), fileSystem_(fileSystem) {}

int ShellServices::wcpOpenDocument(const std::string& document) {
    return shell_.openDocument(document, "Open", kShowDefault);
}

int ShellServices::wcpOpenApacheDownloadPage() { return openHelpPage("/download/kvddapache.html"); }

int ShellServices::openHelpPage(std::string_view page) {
    std::string address(texts::kWebSite);
    address += page;
    return wcpOpenDocument(address);
}

std::string ShellServices::wcpBrowseForFolder() {
    return shell_.browseForFolder("Choose a directory from the list.", kOnlyFileFolders);
}

void ShellServices::wcpBrowseIntoTextBox(TextBox& box) {
    const std::string folder = wcpBrowseForFolder();
    if (folder.empty()) return;
    box.setText(folder);
    box.form().setFocus(box);
}

void ShellServices::wcpSuggestFolderOnDrive(TextBox& box, std::string_view defaultPath) {
    if (!box.text().empty()) return;

    const PathHalves path = splitPath(defaultPath);
    if (path.parent.empty()) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    for (const char drive : {'C', 'D', 'E'}) {
        std::string parent(path.parent);
        parent.front() = drive;
        if (!wcpFolderMissing(fileSystem_, parent, path.name)) {
            box.setText(joinPath(parent, path.name));
            return;
        }
    }
    box.setText("");
}

}  // namespace kv
