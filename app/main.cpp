// The Windows program: the wizard's window on the real file system, clock and shell.
#include <string>

#include <windows.h>

#include "app/Program.h"
#include "common/RunTimeError.h"
#include "common/Text.h"
#include "platform/win32/system/ComApartment.h"
#include "platform/win32/system/ProcessRules.h"
#include "platform/win32/system/ProgramFile.h"
#include "platform/win32/system/Text.h"
#include "platform/win32/system/Win32Clock.h"
#include "platform/win32/system/Win32FileSystem.h"
#include "platform/win32/window/Win32MessageBoxes.h"
#include "platform/win32/window/Win32Shell.h"
#include "platform/win32/window/Window.h"
#include "wizard/form/frmWebConfig.h"

namespace {

void runWizard() {
    kv::frmWebConfig form;
    kv::ComApartment com;
    kv::Window window(form, com, L"frmWebConfig", {kv::kWindowOuterWidth, kv::kWindowInnerHeight});
    kv::Win32FileSystem fileSystem;
    kv::Win32Clock clock;
    kv::Win32Shell shell(window.handle(), com);
    kv::Win32MessageBoxes messageBoxes(window.handle(), form.caption());

    const kv::ProgramFile file = kv::runningProgram();
    kv::Program program(form, {file.folder, file.baseName, kv::leadBytes()}, fileSystem, clock,
                        shell, messageBoxes);
    program.load();
    window.run();
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    kv::useSystemLibrariesOnly();
    kv::askForNoDisk();
    kv::refusePlantedLinks();
    try {
        runWizard();
        return 0;
    } catch (...) {
        const kv::RunTimeError failure = kv::currentFailure();
        kv::showFailure(std::string(kv::texts::kTitle),
                        "The wizard has to close because of error " +
                            std::to_string(failure.number()) + ": " + failure.what() + ".");
        return 1;
    }
}
