// What every FileSystem promises, tested on the one of the host.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/FileSystem.h"
#include "common/RunTimeError.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

using namespace std::string_literals;

constexpr char kReadOnlyIgnored[] = "this host lets this user write to read-only files";

class FileSystemContract : public testing::Test {
protected:
    std::optional<std::string> find(const std::string& path) {
        return files_.findName(path, Lookup::FilesAndFolders);
    }
    std::optional<std::string> findFile(const std::string& path) {
        return files_.findName(path, Lookup::Files);
    }

    TestDisk disk_;
    FileSystem& files_ = disk_.fileSystem();
};

std::string read(OpenFile& file, std::size_t size) {
    std::string buffer(size, '.');
    buffer.resize(file.read(buffer));
    return buffer;
}

std::string descriptionOf(ErrorNumber number) { return RunTimeError(number).what(); }

TEST(FileSystemErrors, HaveTheClassicNumbersAndDescriptions) {
    EXPECT_EQ(RunTimeError(ErrorNumber::BadFileNameOrNumber).number(), 52);
    EXPECT_EQ(RunTimeError(ErrorNumber::FileNotFound).number(), 53);
    EXPECT_EQ(RunTimeError(ErrorNumber::FileAlreadyOpen).number(), 55);
    EXPECT_EQ(RunTimeError(ErrorNumber::DiskFull).number(), 61);
    EXPECT_EQ(RunTimeError(ErrorNumber::PermissionDenied).number(), 70);
    EXPECT_EQ(RunTimeError(ErrorNumber::PathFileAccessError).number(), 75);
    EXPECT_EQ(RunTimeError(ErrorNumber::PathNotFound).number(), 76);

    EXPECT_EQ(descriptionOf(ErrorNumber::BadFileNameOrNumber), "Bad file name or number");
    EXPECT_EQ(descriptionOf(ErrorNumber::FileNotFound), "File not found");
    EXPECT_EQ(descriptionOf(ErrorNumber::FileAlreadyOpen), "File already open");
    EXPECT_EQ(descriptionOf(ErrorNumber::DiskFull), "Disk full");
    EXPECT_EQ(descriptionOf(ErrorNumber::PermissionDenied), "Permission denied");
    EXPECT_EQ(descriptionOf(ErrorNumber::PathFileAccessError), "Path/File access error");
    EXPECT_EQ(descriptionOf(ErrorNumber::PathNotFound), "Path not found");
}

TEST_F(FileSystemContract, AFailureCarriesItsDescription) {
    try {
        files_.fileLength("C:\\missing.txt");
        FAIL() << "nothing was thrown";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), 53);
        EXPECT_STREQ(failure.what(), "File not found");
    }
}

// copyFile

TEST_F(FileSystemContract, CopyingMakesAnEqualFileAndKeepsTheSource) {
    const std::string bytes = "a\r\nb\0c\x1a\xff"s;
    disk_.write("C:\\from\\a.bin", bytes);
    disk_.makeFolder("C:\\to");

    files_.copyFile("C:\\from\\a.bin", "C:\\to\\b.bin");

    EXPECT_EQ(disk_.read("C:\\to\\b.bin"), bytes);
    EXPECT_EQ(disk_.read("C:\\from\\a.bin"), bytes);
}

TEST_F(FileSystemContract, CopyingAnEmptyFileMakesAnEmptyFile) {
    disk_.write("C:\\a", "");

    files_.copyFile("C:\\a", "C:\\b");

    EXPECT_EQ(disk_.read("C:\\b"), "");
}

TEST_F(FileSystemContract, CopyingReplacesALongerFileWhole) {
    disk_.write("C:\\a", "new");
    disk_.write("C:\\b", "old and longer");

    files_.copyFile("C:\\a", "C:\\b");

    EXPECT_EQ(disk_.read("C:\\b"), "new");
}

TEST_F(FileSystemContract, CopyingReplacesAFileOfAnotherCaseAndKeepsItsSpelling) {
    disk_.write("C:\\a", "new");
    disk_.write("C:\\Default.htm", "old");

    files_.copyFile("C:\\A", "C:\\default.HTM");

    EXPECT_EQ(disk_.read("C:\\Default.htm"), "new");
    EXPECT_EQ(disk_.tree("C:\\"), (Lines{"Default.htm", "a"}));
}

TEST_F(FileSystemContract, CopyingBetweenDrivesWorks) {
    disk_.addDrive('D');
    disk_.write("C:\\a", "text");

    files_.copyFile("C:\\a", "D:\\a");

    EXPECT_EQ(disk_.read("D:\\a"), "text");
}

TEST_F(FileSystemContract, CopyingAReadOnlyFileMakesAnOrdinaryOne) {
    disk_.write("C:\\a", "text");
    disk_.makeReadOnly("C:\\a");

    files_.copyFile("C:\\a", "C:\\b");
    files_.copyFile("C:\\a", "C:\\b");
    files_.deleteFiles("C:\\b");

    EXPECT_EQ(disk_.tree("C:\\"), Lines{"a"});
}

TEST_F(FileSystemContract, CopyingAMissingFileIs53AndLeavesTheDestination) {
    disk_.write("C:\\b", "old");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\b"); }), 53);

    EXPECT_EQ(disk_.read("C:\\b"), "old");
}

TEST_F(FileSystemContract, CopyingFromAMissingFolderIs76) {
    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\missing\\a", "C:\\b"); }), 76);
    EXPECT_FALSE(disk_.exists("C:\\b"));
}

TEST_F(FileSystemContract, CopyingIntoAMissingFolderIs76) {
    disk_.write("C:\\a", "text");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\missing\\b"); }), 76);

    EXPECT_EQ(disk_.tree("C:\\"), Lines{"a"});
}

TEST_F(FileSystemContract, CopyingToAMissingDriveIs76) {
    disk_.write("C:\\a", "text");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "E:\\a"); }), 76);
}

TEST_F(FileSystemContract, CopyingAMissingFileIntoAMissingFolderIs53) {
    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\missing\\b"); }), 53);
}

TEST_F(FileSystemContract, CopyingOntoAReadOnlyFileIsRefusedWith75) {
    if (!disk_.honoursReadOnly()) GTEST_SKIP() << kReadOnlyIgnored;
    disk_.write("C:\\a", "new");
    disk_.write("C:\\b", "old");
    disk_.makeReadOnly("C:\\b");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\b"); }), 75);

    EXPECT_EQ(disk_.read("C:\\b"), "old");
}

TEST_F(FileSystemContract, CopyingOntoAFolderIsRefusedWith75) {
    disk_.write("C:\\a", "new");
    disk_.makeFolder("C:\\b");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\b"); }), 75);

    EXPECT_EQ(disk_.tree("C:\\"), (Lines{"a", "b\\"}));
}

TEST_F(FileSystemContract, CopyingAFolderIsRefusedWith75) {
    disk_.makeFolder("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\b"); }), 75);

    EXPECT_FALSE(disk_.exists("C:\\b"));
}

TEST_F(FileSystemContract, CopyingALockedFileIs55) {
    disk_.write("C:\\a", "new");
    const auto lock = disk_.lock("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\b"); }), 55);

    EXPECT_FALSE(disk_.exists("C:\\b"));
}

TEST_F(FileSystemContract, CopyingOntoALockedFileIs55) {
    disk_.write("C:\\a", "new");
    disk_.write("C:\\b", "old");
    auto lock = disk_.lock("C:\\b");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\b"); }), 55);

    lock.reset();
    EXPECT_EQ(disk_.read("C:\\b"), "old");
}

TEST_F(FileSystemContract, CopyingOntoAFileBeingWrittenIs55) {
    disk_.write("C:\\a", "new");
    const auto open = files_.openForWrite("C:\\b");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\b"); }), 55);
}

TEST_F(FileSystemContract, CopyingAFileBeingWrittenIsAllowed) {
    disk_.write("C:\\a", "text");
    const auto open = files_.openForWrite("C:\\a");

    files_.copyFile("C:\\a", "C:\\b");

    EXPECT_EQ(disk_.read("C:\\b"), "text");
}

TEST_F(FileSystemContract, CopyingAFileOntoItselfIs55AndKeepsIt) {
    disk_.write("C:\\a", "text");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\a"); }), 55);
    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a", "C:\\A"); }), 55);

    EXPECT_EQ(disk_.read("C:\\a"), "text");
}

// deleteFiles

TEST_F(FileSystemContract, DeletingRemovesOneFile) {
    disk_.write("C:\\a.txt", "");
    disk_.write("C:\\b.txt", "");

    files_.deleteFiles("C:\\A.TXT");

    EXPECT_EQ(disk_.tree("C:\\"), Lines{"b.txt"});
}

TEST_F(FileSystemContract, DeletingAMissingFileIs53) {
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a"); }), 53);
}

TEST_F(FileSystemContract, DeletingInAMissingFolderIs76) {
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\missing\\a"); }), 76);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\missing\\*.a"); }), 76);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("E:\\a"); }), 76);
}

TEST_F(FileSystemContract, DeletingBelowAFileIs76) {
    disk_.write("C:\\a", "");

    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a\\b"); }), 76);
}

TEST_F(FileSystemContract, DeletingByWildcardRemovesTheFilesThatMatch) {
    disk_.write("C:\\x\\a.txt", "");
    disk_.write("C:\\x\\B.TXT", "");
    disk_.write("C:\\x\\c.log", "");
    disk_.makeFolder("C:\\x\\d.txt");
    disk_.write("C:\\x\\d.txt\\e.txt", "");

    files_.deleteFiles("C:\\x\\*.txt");

    EXPECT_EQ(disk_.tree("C:\\x"), (Lines{"c.log", "d.txt\\", "d.txt\\e.txt"}));
}

TEST_F(FileSystemContract, AQuestionMarkStandsForOneCharacter) {
    disk_.write("C:\\a1.cfg", "");
    disk_.write("C:\\a22.cfg", "");
    disk_.write("C:\\b1.cfg", "");

    files_.deleteFiles("C:\\a?.cfg");

    EXPECT_EQ(disk_.tree("C:\\"), (Lines{"a22.cfg", "b1.cfg"}));
}

TEST_F(FileSystemContract, StarDotStarStandsForEveryFile) {
    disk_.write("C:\\x\\a.txt", "");
    disk_.write("C:\\x\\noextension", "");

    files_.deleteFiles("C:\\x\\*.*");

    EXPECT_EQ(disk_.tree("C:\\x"), Lines{});
}

TEST_F(FileSystemContract, DeletingByWildcardWithoutAMatchIs53) {
    disk_.write("C:\\a.log", "");
    disk_.makeFolder("C:\\b.txt");

    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\*.txt"); }), 53);

    EXPECT_EQ(disk_.tree("C:\\"), (Lines{"a.log", "b.txt\\"}));
}

TEST_F(FileSystemContract, DeletingAFolderIs53) {
    disk_.makeFolder("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a"); }), 53);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a\\"); }), 53);

    EXPECT_TRUE(disk_.exists("C:\\a"));
}

TEST_F(FileSystemContract, DeletingAFolderPathNeverEmptiesTheFolder) {
    disk_.write("C:\\a\\b", "");

    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a\\"); }), 53);

    EXPECT_TRUE(disk_.exists("C:\\a\\b"));
}

TEST_F(FileSystemContract, AReadOnlyFileIsNotDeletedAndIs75) {
    disk_.write("C:\\a", "text");
    disk_.makeReadOnly("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a"); }), 75);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\*"); }), 75);

    EXPECT_EQ(disk_.read("C:\\a"), "text");
}

TEST_F(FileSystemContract, DeletingALockedFileIs55) {
    disk_.write("C:\\a", "");
    const auto lock = disk_.lock("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a"); }), 55);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\*"); }), 55);

    EXPECT_TRUE(disk_.exists("C:\\a"));
}

TEST_F(FileSystemContract, DeletingAnOpenFileIs55) {
    disk_.write("C:\\a", "");
    {
        const auto open = files_.openForRead("C:\\a");
        EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a"); }), 55);
    }
    {
        const auto open = files_.openForWrite("C:\\a");
        EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\a"); }), 55);
    }
    files_.deleteFiles("C:\\a");

    EXPECT_FALSE(disk_.exists("C:\\a"));
}

TEST_F(FileSystemContract, DeletingByWildcardStopsAtTheFirstFileThatCannotBeDeleted) {
    disk_.write("C:\\x\\a", "");
    const auto lock = disk_.lock("C:\\x\\a");
    disk_.write("C:\\x\\b", "");

    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\x\\*"); }), 55);

    EXPECT_EQ(disk_.tree("C:\\x"), (Lines{"a", "b"}));
}

// makeDirectory

TEST_F(FileSystemContract, MakingADirectoryMakesAnEmptyFolder) {
    files_.makeDirectory("C:\\a");
    files_.makeDirectory("C:\\a\\B");

    EXPECT_EQ(disk_.tree("C:\\"), (Lines{"a\\", "a\\B\\"}));
}

TEST_F(FileSystemContract, MakingAnExistingDirectoryIs75) {
    disk_.makeFolder("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.makeDirectory("C:\\a"); }), 75);
    EXPECT_EQ(failureOf([&] { files_.makeDirectory("C:\\A"); }), 75);

    EXPECT_EQ(disk_.tree("C:\\"), Lines{"a\\"});
}

TEST_F(FileSystemContract, MakingADirectoryOfAFilesNameIs75) {
    disk_.write("C:\\a", "text");

    EXPECT_EQ(failureOf([&] { files_.makeDirectory("C:\\a"); }), 75);

    EXPECT_EQ(disk_.read("C:\\a"), "text");
}

TEST_F(FileSystemContract, MakingADirectoryWithoutItsParentIs76) {
    disk_.write("C:\\file", "");

    EXPECT_EQ(failureOf([&] { files_.makeDirectory("C:\\a\\b"); }), 76);
    EXPECT_EQ(failureOf([&] { files_.makeDirectory("C:\\file\\b"); }), 76);
    EXPECT_EQ(failureOf([&] { files_.makeDirectory("E:\\a"); }), 76);

    EXPECT_EQ(disk_.tree("C:\\"), Lines{"file"});
}

// removeDirectory

TEST_F(FileSystemContract, RemovingADirectoryRemovesTheEmptyFolder) {
    disk_.makeFolder("C:\\a\\b");

    files_.removeDirectory("C:\\A\\B");

    EXPECT_EQ(disk_.tree("C:\\"), Lines{"a\\"});
}

TEST_F(FileSystemContract, RemovingADirectoryThatHoldsSomethingIs75) {
    disk_.write("C:\\a\\file", "");
    disk_.makeFolder("C:\\b\\c");

    EXPECT_EQ(failureOf([&] { files_.removeDirectory("C:\\a"); }), 75);
    EXPECT_EQ(failureOf([&] { files_.removeDirectory("C:\\b"); }), 75);

    EXPECT_EQ(disk_.tree("C:\\"), (Lines{"a\\", "a\\file", "b\\", "b\\c\\"}));
}

TEST_F(FileSystemContract, RemovingAMissingDirectoryIs53) {
    EXPECT_EQ(failureOf([&] { files_.removeDirectory("C:\\a"); }), 53);
}

TEST_F(FileSystemContract, RemovingADirectoryOfAMissingParentIs76) {
    EXPECT_EQ(failureOf([&] { files_.removeDirectory("C:\\a\\b"); }), 76);
    EXPECT_EQ(failureOf([&] { files_.removeDirectory("E:\\a"); }), 76);
}

TEST_F(FileSystemContract, RemovingAFileAsADirectoryIs76) {
    disk_.write("C:\\a", "text");

    EXPECT_EQ(failureOf([&] { files_.removeDirectory("C:\\a"); }), 76);

    EXPECT_EQ(disk_.read("C:\\a"), "text");
}

TEST_F(FileSystemContract, RemovingALockedDirectoryIs55) {
    disk_.makeFolder("C:\\a");
    const auto lock = disk_.lock("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.removeDirectory("C:\\a"); }), 55);

    EXPECT_TRUE(disk_.exists("C:\\a"));
}

// findName

TEST_F(FileSystemContract, FindingAnswersTheStoredSpelling) {
    disk_.write("C:\\www\\Index.HTML", "");

    EXPECT_EQ(find("C:\\www\\Index.HTML"), "Index.HTML");
    EXPECT_EQ(find("C:\\www\\index.html"), "Index.HTML");
    EXPECT_EQ(find("c:\\WWW\\INDEX.HTML"), "Index.HTML");
    EXPECT_EQ(findFile("C:\\www\\index.html"), "Index.HTML");
    EXPECT_EQ(find("C:\\WWW"), "www");
}

TEST_F(FileSystemContract, FindingFilesSkipsFolders) {
    disk_.makeFolder("C:\\www");

    EXPECT_EQ(find("C:\\www"), "www");
    EXPECT_EQ(findFile("C:\\www"), std::nullopt);
}

TEST_F(FileSystemContract, FindingFoldersFindsFilesToo) {
    disk_.write("C:\\www", "");

    EXPECT_EQ(find("C:\\www"), "www");
}

TEST_F(FileSystemContract, FindingFindsReadOnlyAndLockedFiles) {
    disk_.write("C:\\a", "");
    disk_.makeReadOnly("C:\\a");
    disk_.write("C:\\b", "");
    const auto lock = disk_.lock("C:\\b");

    EXPECT_EQ(findFile("C:\\A"), "a");
    EXPECT_EQ(findFile("C:\\B"), "b");
}

TEST_F(FileSystemContract, FindingNothingAnswersNothing) {
    disk_.write("C:\\file", "");
    disk_.makeFolder("C:\\www");

    EXPECT_EQ(find("C:\\missing"), std::nullopt);
    EXPECT_EQ(find("C:\\www\\missing"), std::nullopt);
    EXPECT_EQ(find("C:\\missing\\www"), std::nullopt);
    EXPECT_EQ(find("C:\\file\\www"), std::nullopt);
    EXPECT_EQ(find("E:\\www"), std::nullopt);
    EXPECT_EQ(find("E:\\"), std::nullopt);
    EXPECT_EQ(find(""), std::nullopt);
}

TEST_F(FileSystemContract, FindingABadNameAnswersNothing) {
    disk_.makeFolder("C:\\a");

    EXPECT_EQ(find("C:\\a|b"), std::nullopt);
    EXPECT_EQ(find("C:\\a\0b"s), std::nullopt);
    EXPECT_EQ(find("C:\\a\0"s), std::nullopt);
    EXPECT_EQ(find("C:\\" + std::string(300, 'x')), std::nullopt);
    EXPECT_EQ(find("C:\\" + std::string(40000, 'x')), std::nullopt);
}

TEST_F(FileSystemContract, FindingByWildcardAnswersAnEntryThatMatches) {
    disk_.write("C:\\x\\korvane.bak", "");
    disk_.write("C:\\x\\other", "");

    EXPECT_EQ(find("C:\\x\\*.BAK"), "korvane.bak");
    EXPECT_EQ(find("C:\\x\\korvane.???"), "korvane.bak");
    EXPECT_EQ(find("C:\\x\\*.cfg"), std::nullopt);
}

TEST_F(FileSystemContract, FindingByWildcardSkipsFoldersWhenOnlyFilesAreWanted) {
    disk_.makeFolder("C:\\x\\a");
    disk_.write("C:\\x\\b", "");

    EXPECT_EQ(findFile("C:\\x\\*"), "b");
}

TEST_F(FileSystemContract, FindingAFolderPathAnswersAnEntryOfTheFolder) {
    disk_.write("C:\\x\\a", "");
    disk_.makeFolder("C:\\y\\b");

    EXPECT_EQ(find("C:\\x\\"), "a");
    EXPECT_EQ(find("C:\\y\\"), "b");
    EXPECT_EQ(findFile("C:\\y\\"), std::nullopt);
}

TEST_F(FileSystemContract, FindingThePathOfAnEmptyFolderAnswersNothing) {
    disk_.makeFolder("C:\\x");

    EXPECT_EQ(find("C:\\x\\"), std::nullopt);
    EXPECT_EQ(find("C:\\x\\*"), std::nullopt);
    EXPECT_EQ(find("C:\\x\\*.*"), std::nullopt);
}

TEST_F(FileSystemContract, FindingInADriveFindsItsEntries) {
    disk_.addDrive('D');
    disk_.makeFolder("D:\\Inetpub");

    EXPECT_EQ(find("D:\\inetpub"), "Inetpub");
    EXPECT_EQ(find("D:\\"), "Inetpub");
}

TEST_F(FileSystemContract, BlanksAndDotsAtTheEndOfAPathAreIgnored) {
    disk_.makeFolder("C:\\www");

    EXPECT_EQ(find("C:\\www "), "www");
    EXPECT_EQ(find("C:\\www.. ."), "www");
    EXPECT_EQ(find("C:\\ www"), std::nullopt);
}

TEST_F(FileSystemContract, RepeatedSeparatorsAreOneAndTheSlashIsOne) {
    disk_.write("C:\\www\\a", "text");

    EXPECT_EQ(find("C:\\www\\\\a"), "a");
    EXPECT_EQ(find("C:/www/A"), "a");
    EXPECT_EQ(files_.fileLength("C:\\\\www\\.\\..\\www/a"), 4);
}

TEST_F(FileSystemContract, APathWithoutADriveIsOnTheCurrentOne) {
    disk_.makeFolder("C:\\kv");

    EXPECT_EQ(find("\\KV"), "kv");
    files_.makeDirectory("\\kv\\kvi");

    EXPECT_TRUE(disk_.exists("C:\\kv\\kvi"));
}

// fileLength

TEST_F(FileSystemContract, TheLengthIsInBytes) {
    disk_.write("C:\\empty", "");
    disk_.write("C:\\a", std::string(500000, 'x'));

    EXPECT_EQ(files_.fileLength("C:\\empty"), 0);
    EXPECT_EQ(files_.fileLength("C:\\A"), 500000);
}

TEST_F(FileSystemContract, TheLengthOfALockedFileIsKnown) {
    disk_.write("C:\\a", "text");
    const auto lock = disk_.lock("C:\\a");

    EXPECT_EQ(files_.fileLength("C:\\a"), 4);
}

TEST_F(FileSystemContract, TheLengthOfAMissingFileIs53) {
    EXPECT_EQ(failureOf([&] { files_.fileLength("C:\\a"); }), 53);
}

TEST_F(FileSystemContract, TheLengthOfAFileInAMissingFolderIs76) {
    EXPECT_EQ(failureOf([&] { files_.fileLength("C:\\missing\\a"); }), 76);
    EXPECT_EQ(failureOf([&] { files_.fileLength("E:\\a"); }), 76);
}

TEST_F(FileSystemContract, TheLengthOfAFolderIs75) {
    disk_.makeFolder("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.fileLength("C:\\a"); }), 75);
}

// openForWrite

TEST_F(FileSystemContract, OpeningForWriteCreatesTheFile) {
    files_.openForWrite("C:\\a")->close();

    EXPECT_EQ(disk_.read("C:\\a"), "");
}

TEST_F(FileSystemContract, WritingBeginsAtTheFirstByteAndTruncatesNothing) {
    disk_.write("C:\\a", "0123456789");

    const auto file = files_.openForWrite("C:\\A");
    file->write("ab");
    file->write("");
    file->write("c");
    file->close();

    EXPECT_EQ(disk_.read("C:\\a"), "abc3456789");
}

TEST_F(FileSystemContract, WritingBeyondTheEndExtendsTheFile) {
    disk_.write("C:\\a", "01");
    const std::string bytes(300000, 'x');

    const auto file = files_.openForWrite("C:\\a");
    file->write(bytes);
    file->close();

    EXPECT_EQ(disk_.read("C:\\a"), bytes);
}

TEST_F(FileSystemContract, ASecondWriterIs55UntilTheFirstHasClosed) {
    auto first = files_.openForWrite("C:\\a");
    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\a"); }), 55);
    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\A"); }), 55);
    EXPECT_EQ(failureOf([&] { files_.append("C:\\a", "x"); }), 55);

    first->close();

    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\a"); }), 0);
}

TEST_F(FileSystemContract, DestroyingAFileClosesIt) {
    files_.openForWrite("C:\\a").reset();

    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\a"); }), 0);
}

TEST_F(FileSystemContract, AClosedFileIsA52) {
    const auto file = files_.openForWrite("C:\\a");
    file->close();

    EXPECT_EQ(failureOf([&] { file->write("x"); }), 52);
}

TEST_F(FileSystemContract, ReadersShareAFileWithItsWriter) {
    const auto writer = files_.openForWrite("C:\\a");
    writer->write("text");

    const auto reader = files_.openForRead("C:\\a");

    EXPECT_EQ(read(*reader, 4), "text");
}

TEST_F(FileSystemContract, AWriterSharesAFileWithItsReaders) {
    disk_.write("C:\\a", "old!");
    const auto reader = files_.openForRead("C:\\a");

    files_.openForWrite("C:\\a")->write("text");

    EXPECT_EQ(read(*reader, 4), "text");
}

TEST_F(FileSystemContract, TruncatingEndsTheFileAtThePosition) {
    disk_.write("C:\\a", "a long text");
    const auto file = files_.openForWrite("C:\\a");
    file->write("cut");

    file->truncate();
    EXPECT_EQ(disk_.read("C:\\a"), "cut");
    file->write(" here");
    file->close();

    EXPECT_EQ(disk_.read("C:\\a"), "cut here");
}

TEST_F(FileSystemContract, TruncatingAFileJustOpenedEmptiesIt) {
    disk_.write("C:\\a", "old");

    files_.openForWrite("C:\\a")->truncate();

    EXPECT_EQ(disk_.read("C:\\a"), "");
}

TEST_F(FileSystemContract, OpeningForWriteInAMissingFolderIs76) {
    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\missing\\a"); }), 76);
    EXPECT_EQ(failureOf([&] { files_.openForWrite("E:\\a"); }), 76);
}

TEST_F(FileSystemContract, OpeningAFolderForWriteIs75) {
    disk_.makeFolder("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\a"); }), 75);
}

TEST_F(FileSystemContract, OpeningAReadOnlyFileForWriteIs75) {
    if (!disk_.honoursReadOnly()) GTEST_SKIP() << kReadOnlyIgnored;
    disk_.write("C:\\a", "");
    disk_.makeReadOnly("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\a"); }), 75);
}

TEST_F(FileSystemContract, OpeningALockedFileIs55) {
    disk_.write("C:\\a", "");
    const auto lock = disk_.lock("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\a"); }), 55);
    EXPECT_EQ(failureOf([&] { files_.openForRead("C:\\a"); }), 55);
    EXPECT_EQ(failureOf([&] { files_.append("C:\\a", "x"); }), 55);
}

// openForRead

TEST_F(FileSystemContract, ReadingGoesOnFromThePosition) {
    disk_.write("C:\\a", "0123456789");

    const auto file = files_.openForRead("C:\\a");

    EXPECT_EQ(read(*file, 4), "0123");
    EXPECT_EQ(read(*file, 0), "");
    EXPECT_EQ(read(*file, 6), "456789");
}

TEST_F(FileSystemContract, ReadingBeyondTheEndReturnsTheShorterCount) {
    disk_.write("C:\\a", "text");
    std::string buffer(10, '.');

    const auto file = files_.openForRead("C:\\a");

    EXPECT_EQ(file->read(buffer), 4u);
    EXPECT_EQ(buffer, "text......");
    EXPECT_EQ(file->read(buffer), 0u);
    EXPECT_EQ(buffer, "text......");
}

TEST_F(FileSystemContract, ReadersShareAFile) {
    disk_.write("C:\\a", "text");
    disk_.makeReadOnly("C:\\a");

    const auto first = files_.openForRead("C:\\a");
    const auto second = files_.openForRead("C:\\a");

    EXPECT_EQ(read(*first, 4), "text");
    EXPECT_EQ(read(*second, 4), "text");
}

TEST_F(FileSystemContract, OpeningAMissingFileForReadIs53AndCreatesNothing) {
    EXPECT_EQ(failureOf([&] { files_.openForRead("C:\\a"); }), 53);
    EXPECT_FALSE(disk_.exists("C:\\a"));
}

TEST_F(FileSystemContract, OpeningForReadInAMissingFolderIs76) {
    EXPECT_EQ(failureOf([&] { files_.openForRead("C:\\missing\\a"); }), 76);
    EXPECT_EQ(failureOf([&] { files_.openForRead("E:\\a"); }), 76);
}

TEST_F(FileSystemContract, OpeningAFolderForReadIs75) {
    disk_.makeFolder("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.openForRead("C:\\a"); }), 75);
}

// append

TEST_F(FileSystemContract, AppendingCreatesTheFileAndAddsToItsEnd) {
    files_.append("C:\\a.log", "one\r\n");
    files_.append("C:\\A.LOG", "two\r\n");

    EXPECT_EQ(disk_.read("C:\\a.log"), "one\r\ntwo\r\n");
    EXPECT_EQ(disk_.tree("C:\\"), Lines{"a.log"});
}

TEST_F(FileSystemContract, AppendingInAMissingFolderIs76AndMakesNone) {
    EXPECT_EQ(failureOf([&] { files_.append("C:\\log\\a.log", "x"); }), 76);
    EXPECT_FALSE(disk_.exists("C:\\log"));
}

TEST_F(FileSystemContract, AppendingToAFolderIs75) {
    disk_.makeFolder("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.append("C:\\a", "x"); }), 75);
}

TEST_F(FileSystemContract, AppendingToAReadOnlyFileIs75) {
    if (!disk_.honoursReadOnly()) GTEST_SKIP() << kReadOnlyIgnored;
    disk_.write("C:\\a", "old");
    disk_.makeReadOnly("C:\\a");

    EXPECT_EQ(failureOf([&] { files_.append("C:\\a", "x"); }), 75);

    EXPECT_EQ(disk_.read("C:\\a"), "old");
}

TEST_F(FileSystemContract, AppendingSharesAFileWithItsReaders) {
    disk_.write("C:\\a", "one");
    const auto reader = files_.openForRead("C:\\a");

    files_.append("C:\\a", "two");

    EXPECT_EQ(read(*reader, 10), "onetwo");
}

// bad names

class BadName : public testing::TestWithParam<std::string> {};

TEST_P(BadName, Is52ForEveryOperation) {
    TestDisk disk;
    FileSystem& files = disk.fileSystem();
    disk.write("C:\\good", "text");
    const std::string bad = "C:\\" + GetParam();

    EXPECT_EQ(failureOf([&] { files.copyFile(bad, "C:\\b"); }), 52);
    EXPECT_EQ(failureOf([&] { files.copyFile("C:\\good", bad); }), 52);
    EXPECT_EQ(failureOf([&] { files.deleteFiles(bad); }), 52);
    EXPECT_EQ(failureOf([&] { files.makeDirectory(bad); }), 52);
    EXPECT_EQ(failureOf([&] { files.removeDirectory(bad); }), 52);
    EXPECT_EQ(failureOf([&] { files.fileLength(bad); }), 52);
    EXPECT_EQ(failureOf([&] { files.openForWrite(bad); }), 52);
    EXPECT_EQ(failureOf([&] { files.openForRead(bad); }), 52);
    EXPECT_EQ(failureOf([&] { files.append(bad, "x"); }), 52);

    EXPECT_EQ(disk.tree("C:\\"), Lines{"good"});
}

INSTANTIATE_TEST_SUITE_P(FileSystemContract, BadName,
                         testing::Values("a|b", "a<b", "a>b", "a\"b", "good\0"s, "a\0b"s));

TEST_F(FileSystemContract, AWildcardOutsideADeletionIs52) {
    disk_.write("C:\\good", "text");

    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\g*", "C:\\b"); }), 52);
    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\good", "C:\\?"); }), 52);
    EXPECT_EQ(failureOf([&] { files_.makeDirectory("C:\\a*"); }), 52);
    EXPECT_EQ(failureOf([&] { files_.openForWrite("C:\\a?"); }), 52);
    EXPECT_EQ(failureOf([&] { files_.fileLength("C:\\g*"); }), 52);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\g*\\a"); }), 52);
}

}  // namespace
}  // namespace kv
