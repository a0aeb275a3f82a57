// The computer goes off while the record of the installation is written, and leaves its beginning
// only: what the wizard then shows, what it does when it is asked to all the same, and that the two
// ways out that the administrator's guide tells lead to the disk of an undisturbed run.
#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/driver/WideText.h"
#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/model/LogEntries.h"
#include "tests/robustness/Ground.h"
#include "tests/robustness/QuickUser.h"

namespace kv::endtoend {

namespace {

constexpr std::string_view kMissingFile = "SERV  53, File not found, iocCfgReadFile";
constexpr std::string_view kRowsNotCounted =
    "WARN  9, Subscript out of range, wcpConfigInstallRead";
constexpr std::string_view kNoNumber = "WARN  13, Type mismatch, iocCfgReadFileParseData";
constexpr int kMessageText = 0xFFFF;

// What the wizard makes of it: the panel and the text of its start, and what follows when somebody
// goes on from there.
enum class Meaning {
    Error,       // nothing can be done
    FirstTime,   // only a new installation
    NoFolder,    // one that is installed nowhere: modification and deletion end the program
    OtherPlace,  // one whose scripts folder is another
    Whole,       // all that a modification or a deletion needs to know
};

constexpr std::size_t kAll = std::string::npos;

// The record's beginning: so many lines, and so many bytes of the next one.
struct Prefix {
    std::string_view name;
    int lines;  // -1 for no file at all
    std::size_t bytes;
    Meaning meaning;
    std::vector<std::string_view> log = {};  // of the start
};

void PrintTo(const Prefix& which, std::ostream* out) { *out << which.name; }

const Prefix kPrefixes[] = {
    {"Missing", -1, 0, Meaning::Error, {kMissingFile}},
    {"Empty", 0, 0, Meaning::Error, {kRowsNotCounted}},
    {"FirstByte", 0, 1, Meaning::FirstTime, {kRowsNotCounted}},
    {"WithinTheFirstComments", 1, 30, Meaning::FirstTime, {kRowsNotCounted}},
    {"FirstComments", 5, 0, Meaning::FirstTime, {kRowsNotCounted}},
    {"FirstHeaderLines", 7, 0, Meaning::FirstTime, {kRowsNotCounted}},
    {"WithinAHeaderKey", 7, 1, Meaning::FirstTime, {kRowsNotCounted}},
    {"BeforeTheNumberOfRows", 8, 5, Meaning::FirstTime, {kRowsNotCounted}},
    {"RightBeforeTheNumberOfRows", 8, 6, Meaning::Error, {kNoNumber, kRowsNotCounted}},
    {"NumberOfRows", 8, 7, Meaning::NoFolder},
    {"WithinTheHeader", 12, 3, Meaning::NoFolder},
    {"Header", 16, 0, Meaning::NoFolder},
    {"PropertyComments", 19, 0, Meaning::NoFolder},
    {"WithinThePropertysName", 19, 5, Meaning::Error},
    {"WithinThePropertysValue", 19, 12, Meaning::NoFolder},
    {"HeaderAndProperties", 20, 0, Meaning::NoFolder},
    {"DataComments", 23, 0, Meaning::NoFolder},
    {"WithinTheDocumentRoot", 23, 12, Meaning::NoFolder},
    {"DocumentRoot", 24, 0, Meaning::NoFolder},
    {"BeforeTheScriptsFolder", 24, 4, Meaning::NoFolder},
    {"WithinTheScriptsFolder", 24, 12, Meaning::OtherPlace},
    {"ScriptsFolder", 24, kAll, Meaning::Whole},
    {"BothFolders", 25, 0, Meaning::Whole},
    {"WithinTheProductFolder", 25, 10, Meaning::Whole},
    {"BeforeTheServersKind", 26, 0, Meaning::Whole},
    {"WithinTheLastRow", 29, 3, Meaning::Whole},
    {"AllButTheLastLineEnd", 29, kAll, Meaning::Whole},
};

std::string prefixOf(const std::string& record, const Prefix& prefix) {
    constexpr std::string_view kLineEnd = "\r\n";
    std::size_t length = 0;
    for (int line = 0; line < prefix.lines; ++line)
        length = record.find(kLineEnd, length) + kLineEnd.size();
    const std::size_t rest = record.find(kLineEnd, length) - length;
    return record.substr(0, length + std::min(prefix.bytes, rest));
}

}  // namespace

class PartialRecord : public testing::TestWithParam<Prefix> {
protected:
    PartialRecord() { unpacked_ = ground_.place().tree(); }

    bool isConfigured() const {
        return GetParam().meaning != Meaning::Error && GetParam().meaning != Meaning::FirstTime;
    }

    // The disk after an undisturbed run of each operation on what was installed in the first
    // server.
    Tree after(Operation operation) const {
        return ground_.after(operation, ground_.before(operation));
    }

    // The disk after the run that was broken off while the record was written, as the last thing
    // but one: the copy below the scripts folder has not been written yet.
    void breakOff(Tree after) {
        const std::string record = after.at(kSettings);
        after.erase(kSettings);
        after.erase("other\\cgi-bin\\kv\\kvi\\kvi.cfg");
        if (GetParam().lines >= 0) after[kSettings] = prefixOf(record, GetParam());
        ground_.restore(after);
    }

    void expectStart() {
        const auto wizard = ground_.start();
        if (GetParam().meaning == Meaning::Error) {
            EXPECT_EQ(wizard->currentPanel(), 12);
            pressAndLeave(*wizard, kFinish);
        } else {
            EXPECT_EQ(wizard->currentPanel(), 0);
            EXPECT_TRUE(wizard->shows(isConfigured() ? kWelcomeConfigured : kWelcomeFirst));
            wizard->closeWindow();
        }
        EXPECT_EQ(wizard->waitForExit(), 0U);
        EXPECT_EQ(logEntries(ground_.log()), Lines(GetParam().log.begin(), GetParam().log.end()));
        ground_.place().remove(kLogFile);
    }

    // Somebody tries the operation on the partial record all the same.
    void tryAnyway(Operation operation) {
        if (GetParam().meaning == Meaning::NoFolder)
            expectEnd(operation);
        else
            ground_.run(operation);
    }

    // Before anything is touched.
    void expectEnd(Operation operation) {
        const Tree before = ground_.treeBesideLog();
        const auto wizard = ground_.start();
        ground_.goToConfirmation(*wizard, operation);
        pressAndLeave(*wizard, kNext);
        const MessageBoxView box = wizard->waitForMessageBoxOfAnySize();
        EXPECT_EQ(
            wideText(GetDlgItem(box.handle, kMessageText)),
            L"The wizard has to close because of error 5: Invalid procedure call or argument.");
        PostMessageA(GetDlgItem(box.handle, IDOK), BM_CLICK, 0, 0);
        EXPECT_EQ(wizard->waitForExit(), 1U);
        EXPECT_EQ(differences(before, ground_.treeBesideLog()), "");
    }

    void restoreBackup() const { ground_.place().write(kSettings, recordOf(ground_.first())); }
    void takeFromPackage() const { ground_.place().write(kSettings, freshSettings()); }

    void expectDisk(const Tree& expected) const {
        EXPECT_EQ(differences(expected, ground_.treeBesideLog()), "");
    }

    Ground ground_{"Partial"};
    Tree unpacked_;
};

TEST_P(PartialRecord, OfAModificationShowsAndDoesWhatItSays) {
    const Tree whole = after(Operation::Modify);
    breakOff(whole);

    expectStart();
    if (isConfigured()) tryAnyway(Operation::Modify);

    if (GetParam().meaning == Meaning::Whole) {
        expectDisk(whole);
    } else {
        // What lies in the server, and that is all, was deployed there before.
        Tree now = ground_.treeBesideLog();
        EXPECT_EQ(now.at("other\\cgi-bin\\kv\\kv.exe"), unpacked_.at("product\\bin\\kv.exe"));
    }
}

TEST_P(PartialRecord, OfAModificationIsMendedByTheBackup) {
    const Tree whole = after(Operation::Modify);
    breakOff(whole);
    if (isConfigured()) tryAnyway(Operation::Delete);

    restoreBackup();
    ground_.run(Operation::Modify);

    expectDisk(whole);
}

TEST_P(PartialRecord, OfAModificationIsMendedByTheFileOfThePackage) {
    Tree expected = after(Operation::Modify);
    breakOff(expected);
    // A new installation puts the help's entry page into its place; a modification has no need to.
    expected = afterInstallation(expected, ground_.second());

    takeFromPackage();
    ground_.run(Operation::New, ground_.second());

    expectDisk(expected);
}

INSTANTIATE_TEST_SUITE_P(All, PartialRecord, testing::ValuesIn(kPrefixes),
                         [](const testing::TestParamInfo<Prefix>& which) {
                             return std::string(which.param.name);
                         });

// A deletion's record has no rows, and its header says so: each beginning that tells the number of
// rows is as good as the whole.
class PartialRecordWithoutRows : public PartialRecord {};

const Prefix kPrefixesWithoutRows[] = {
    {"Missing", -1, 0, Meaning::Error, {kMissingFile}},
    {"Empty", 0, 0, Meaning::Error, {kRowsNotCounted}},
    {"FirstComments", 5, 0, Meaning::FirstTime, {kRowsNotCounted}},
    {"RightBeforeTheNumberOfRows", 8, 6, Meaning::Error, {kNoNumber, kRowsNotCounted}},
    {"NumberOfRows", 8, 7, Meaning::FirstTime},
    {"Header", 16, 0, Meaning::FirstTime},
    {"WithinThePropertysName", 19, 5, Meaning::Error},
    {"WithinThePropertysValue", 19, 12, Meaning::FirstTime},
    {"AllButTheLastLineEnd", 19, kAll, Meaning::FirstTime},
};

TEST_P(PartialRecordWithoutRows, ShowsWhatItSays) {
    breakOff(after(Operation::Delete));

    expectStart();
}

TEST_P(PartialRecordWithoutRows, IsMendedByTheBackup) {
    const Tree whole = after(Operation::Delete);
    breakOff(whole);

    restoreBackup();
    ground_.run(Operation::Delete);

    expectDisk(whole);
}

TEST_P(PartialRecordWithoutRows, IsMendedByTheFileOfThePackage) {
    Tree expected = after(Operation::Delete);
    breakOff(expected);
    expected = afterInstallation(expected, ground_.first());

    takeFromPackage();
    ground_.run(Operation::New);

    expectDisk(expected);
}

INSTANTIATE_TEST_SUITE_P(All, PartialRecordWithoutRows, testing::ValuesIn(kPrefixesWithoutRows),
                         [](const testing::TestParamInfo<Prefix>& which) {
                             return std::string(which.param.name);
                         });

}  // namespace kv::endtoend
