// What each operation does: to the files and folders, and by which calls.
#pragma once

#include <string>

#include "tests/model/Product.h"
#include "tests/model/SettingsFile.h"

namespace kv {

enum class Operation { New, Modify, Delete, Backup, Upgrade };

const char* nameOf(Operation operation);

// Makes the folders and copies the files that the product has, with nothing recorded.
void deploy(Tree& tree, const Site& site);

// Takes away the deployed files, and the deployed folders that are then empty.
void takeAway(Tree& tree, const Site& site);

// Writes both settings files anew.
void record(Tree& tree, const Site& site);

// A deployment that is recorded, as a modification leaves it.
void putDeployment(Tree& tree, const Site& site);

// What the operations leave of a sound product and server. A new installation writes the record
// over the one that is there.
Tree afterInstallation(Tree tree, const Site& site);
Tree afterModification(Tree tree, const Site& before, const Site& after);
Tree afterDeletion(Tree tree, const Site& site);
Tree afterBackup(Tree tree, const Site& site);
Tree afterUpgrade(Tree tree, const Site& site);
Tree afterOperation(Operation operation, Tree tree, const Site& site, const Site& moved);

// A product with a backup of an installation, freshly unpacked over it with a newer program.
Tree withUpgradeAtHand(Tree tree, const Site& site);

// Writes from the first byte on, over what the file held before.
void overwrite(Tree& tree, const std::string& path, const std::string& bytes);

// The calls of the single stages, as lines of a journal.
Lines makeCalls(const Site& site);  // where nothing is there yet
Lines copyCalls(const std::vector<Copy>& copies);
Lines deleteCalls(const Site& site);
Lines removeCalls(const Site& site);

// The calls that write a settings file of these bytes, one write for each section; and the same for
// one that is emptied first.
Lines settingsCalls(const std::string& path, const std::string& bytes);
Lines rewritingCalls(const std::string& path, const std::string& bytes);

// The calls of whole operations, into web servers in which nothing of the product lies yet.
Lines installationCalls(const Site& site);
Lines modificationCalls(const Site& before, const Site& after);
Lines deletionCalls(const Site& site);
Lines backupCalls(const Site& site);

// With the contents of the new main configuration file and of the one put aside.
Lines upgradeCalls(const Site& site, const std::string& newMain, const std::string& oldMain);

// How many of the calls can fail: all but the look-ups.
std::size_t failingCalls(const Lines& calls);

// The progress line's widths, in twips: as it begins and ends, and when all files and folders are
// done. Of a new installation and a modification it then grows by a step for the record.
inline constexpr int kProgressBegin = 255;
inline constexpr int kProgressEnd = 5655;
inline constexpr int kRecordStep = 100;
constexpr int progressBeforeRecord(Operation operation, UrlStyle style = UrlStyle::SiteRoot) {
    const std::size_t deleted = kDeletedFileCount + kRemovedFolderCount;
    const std::size_t deployed = kMadeFolderCount + copiedFileCount(style);
    switch (operation) {
        case Operation::New: return kProgressBegin + 100 * static_cast<int>(deployed);
        case Operation::Modify: return kProgressBegin + 50 * static_cast<int>(deleted + deployed);
        case Operation::Delete: return kProgressBegin + 100 * static_cast<int>(deleted);
        default: return kProgressEnd;
    }
}

}  // namespace kv
