#include "platform/win32/window/Win32Shell.h"

#include <objbase.h>

#include <gtest/gtest.h>

#include "platform/win32/window/Accessibility.h"
#include "tests/support/Win32Thread.h"

namespace kv {
namespace {

// Of this thread: an error when it has entered none.
HRESULT apartment() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    const HRESULT answer = CoGetApartmentType(&type, &qualifier);
    if (SUCCEEDED(answer)) {
        EXPECT_TRUE(type == APTTYPE_STA || type == APTTYPE_MAINSTA) << type;
    }
    return answer;
}

int openWhatIsNotThere(Win32Shell& shell) {
    return shell.openDocument("C:\\no such folder\\no such page.html", "Open", SW_SHOWDEFAULT);
}

// On threads of their own, for the system may have given the tests' thread an apartment.

TEST(Win32Shell, NothingIsEnteredBeforeItIsNeeded) {
    const Win32Thread thread([] {
        ComApartment com;
        const Win32Shell shell(nullptr, com);
        const Accessibility accessibility(com);

        EXPECT_EQ(apartment(), CO_E_NOTINITIALIZED);
    });
}

TEST(Win32Shell, ADocumentIsOpenedInAnApartmentThatStays) {
    const Win32Thread thread([] {
        ComApartment com;
        Win32Shell shell(nullptr, com);

        EXPECT_LE(openWhatIsNotThere(shell), 32);
        EXPECT_EQ(apartment(), S_OK);
        EXPECT_LE(openWhatIsNotThere(shell), 32);
        EXPECT_EQ(apartment(), S_OK);
    });
}

TEST(Win32Shell, TheShellAndAScreenReaderShareOneApartmentThatIsLeftOnce) {
    const Win32Thread thread([] {
        {
            ComApartment com;
            Win32Shell shell(nullptr, com);
            Accessibility accessibility(com);
            accessibility.enable();
            EXPECT_EQ(apartment(), S_OK);
            openWhatIsNotThere(shell);
            openWhatIsNotThere(shell);
        }

        EXPECT_EQ(apartment(), CO_E_NOTINITIALIZED);
    });
}

}  // namespace
}  // namespace kv
