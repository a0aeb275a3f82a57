#include "tests/support/Deployment.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kv {
namespace {

// In the order of their deletion.
const Lines kDeployedFiles{
    "S\\kv\\kvi\\kvi.cfg",
    "S\\kv\\kv.exe",
    "S\\kv\\kvcfg.exe",
    "S\\kv\\kvclpbd.exe",
    "S\\kv\\kvdir.exe",
    "S\\kv\\kvfile.exe",
    "S\\kv\\kvhlp.exe",
    "S\\kv\\kvimg.exe",
    "S\\kv\\kvjs.exe",
    "S\\kv\\kvlogon.exe",
    "S\\kv\\kvabout.exe",
    "S\\kv\\kvwlcm.exe",
    "S\\kv\\qtmdb.dll",
    "S\\kv\\QTnbwB.dll",
    "H\\kv\\favicon.ico",
    "H\\kv\\index.html",
    "H\\kv\\Default.htm",
    "H\\images\\kv\\kvimg\\arrowlsd.gif",
    "H\\images\\kv\\kvimg\\arrowlse.gif",
    "H\\images\\kv\\kvimg\\arrowrsd.gif",
    "H\\images\\kv\\kvimg\\arrowrse.gif",
    "H\\images\\kv\\kvimg\\arrowtopd.gif",
    "H\\images\\kv\\kvimg\\arrowtope.gif",
    "H\\images\\kv\\kvimg\\arrowupd.gif",
    "H\\images\\kv\\kvimg\\arrowupe.gif",
    "H\\images\\kv\\kvimg\\btn-bgr.gif",
    "H\\images\\kv\\kvimg\\chk_no11x11.gif",
    "H\\images\\kv\\kvimg\\chk_yes11x11.gif",
    "H\\images\\kv\\kvimg\\close16x16.gif",
    "H\\images\\kv\\kvimg\\kvlogo30x60.gif",
    "H\\images\\kv\\kvimg\\kvlogo60x120.gif",
    "H\\images\\kv\\kvimg\\kvlogo80x160.gif",
    "H\\images\\kv\\kvimg\\kvsite42x530.gif",
    "H\\images\\kv\\kvimg\\file11x11.gif",
    "H\\images\\kv\\kvimg\\folder11x11.gif",
    "H\\images\\kv\\kvimg\\quest_b.gif",
    "H\\images\\kv\\kvimg\\red_dot1x1.gif",
    "H\\images\\kv\\kvimg\\red_v1x2.gif",
};

// In the order of their removal.
const Lines kDeployedFolders{
    "S\\kv\\kvi", "S\\kv", "H\\images\\kv\\kvimg", "H\\images\\kv\\cimg", "H\\images\\kv", "H\\kv",
};

struct CopyRow {
    const char* from;
    const char* to;
};

const std::array<CopyRow, 13> kProgramCopies{{
    {"P\\bin\\kv.exe", "S\\kv\\kv.exe"},
    {"P\\bin\\kvabout.exe", "S\\kv\\kvabout.exe"},
    {"P\\bin\\kvcfg.exe", "S\\kv\\kvcfg.exe"},
    {"P\\bin\\kvclpbd.exe", "S\\kv\\kvclpbd.exe"},
    {"P\\bin\\kvdir.exe", "S\\kv\\kvdir.exe"},
    {"P\\bin\\kvfile.exe", "S\\kv\\kvfile.exe"},
    {"P\\bin\\kvhlp.exe", "S\\kv\\kvhlp.exe"},
    {"P\\bin\\kvimg.exe", "S\\kv\\kvimg.exe"},
    {"P\\bin\\kvjs.exe", "S\\kv\\kvjs.exe"},
    {"P\\bin\\kvlogon.exe", "S\\kv\\kvlogon.exe"},
    {"P\\bin\\kvwlcm.exe", "S\\kv\\kvwlcm.exe"},
    {"P\\bin\\qtmdb.dll", "S\\kv\\qtmdb.dll"},
    {"P\\bin\\QTnbwB.dll", "S\\kv\\QTnbwB.dll"},
}};

const std::array<CopyRow, 3> kSubFolderCopies{{
    {"P\\web-root\\kv\\favicon.ico", "H\\kv\\favicon.ico"},
    {"P\\web-root\\kv\\index.html", "H\\kv\\index.html"},
    {"P\\web-root\\kv\\Default.htm", "H\\kv\\Default.htm"},
}};

const std::array<CopyRow, 3> kSiteRootCopies{{
    {"P\\web-root\\favicon.ico", "H\\favicon.ico"},
    {"P\\web-root\\index.html", "H\\index.html"},
    {"P\\web-root\\Default.htm", "H\\Default.htm"},
}};

const std::array<CopyRow, 21> kImageCopies{{
    {"P\\web-root\\images\\kvimg\\arrowlsd.gif", "H\\images\\kv\\kvimg\\arrowlsd.gif"},
    {"P\\web-root\\images\\kvimg\\arrowlse.gif", "H\\images\\kv\\kvimg\\arrowlse.gif"},
    {"P\\web-root\\images\\kvimg\\arrowrsd.gif", "H\\images\\kv\\kvimg\\arrowrsd.gif"},
    {"P\\web-root\\images\\kvimg\\arrowrse.gif", "H\\images\\kv\\kvimg\\arrowrse.gif"},
    {"P\\web-root\\images\\kvimg\\arrowtopd.gif", "H\\images\\kv\\kvimg\\arrowtopd.gif"},
    {"P\\web-root\\images\\kvimg\\arrowtope.gif", "H\\images\\kv\\kvimg\\arrowtope.gif"},
    {"P\\web-root\\images\\kvimg\\arrowupd.gif", "H\\images\\kv\\kvimg\\arrowupd.gif"},
    {"P\\web-root\\images\\kvimg\\arrowupe.gif", "H\\images\\kv\\kvimg\\arrowupe.gif"},
    {"P\\web-root\\images\\kvimg\\btn-bgr.gif", "H\\images\\kv\\kvimg\\btn-bgr.gif"},
    {"P\\web-root\\images\\kvimg\\chk_no11x11.gif", "H\\images\\kv\\kvimg\\chk_no11x11.gif"},
    {"P\\web-root\\images\\kvimg\\chk_yes11x11.gif", "H\\images\\kv\\kvimg\\chk_yes11x11.gif"},
    {"P\\web-root\\images\\kvimg\\close16x16.gif", "H\\images\\kv\\kvimg\\close16x16.gif"},
    {"P\\web-root\\images\\kvimg\\kvlogo30x60.gif", "H\\images\\kv\\kvimg\\kvlogo30x60.gif"},
    {"P\\web-root\\images\\kvimg\\kvlogo60x120.gif", "H\\images\\kv\\kvimg\\kvlogo60x120.gif"},
    {"P\\web-root\\images\\kvimg\\kvlogo80x160.gif", "H\\images\\kv\\kvimg\\kvlogo80x160.gif"},
    {"P\\web-root\\images\\kvimg\\kvsite42x530.gif", "H\\images\\kv\\kvimg\\kvsite42x530.gif"},
    {"P\\web-root\\images\\kvimg\\file11x11.gif", "H\\images\\kv\\kvimg\\file11x11.gif"},
    {"P\\web-root\\images\\kvimg\\folder11x11.gif", "H\\images\\kv\\kvimg\\folder11x11.gif"},
    {"P\\web-root\\images\\kvimg\\quest_b.gif", "H\\images\\kv\\kvimg\\quest_b.gif"},
    {"P\\web-root\\images\\kvimg\\red_dot1x1.gif", "H\\images\\kv\\kvimg\\red_dot1x1.gif"},
    {"P\\web-root\\images\\kvimg\\red_v1x2.gif", "H\\images\\kv\\kvimg\\red_v1x2.gif"},
}};

std::string placed(const Site& site, const std::string& path) {
    if (path.starts_with("H\\")) return site.home + path.substr(1);
    if (path.starts_with("S\\")) return site.scripts + path.substr(1);
    if (path.starts_with("P\\")) return kSampleProduct + path.substr(1);
    return path;
}

template <class Rows>
void add(std::vector<Copy>& copies, const Site& site, const Rows& rows) {
    for (const auto& [from, to] : rows) copies.push_back({placed(site, from), placed(site, to)});
}

Lines prefixed(const char* prefix, Lines lines) {
    for (std::string& line : lines) line.insert(0, prefix);
    return lines;
}

std::string readable(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        switch (c) {
            case '\r': text += "\\r"; break;
            case '\n': text += "\\n"; break;
            case '\x0F':
            case '\x10': text += '|'; break;
            default: text += c;
        }
    }
    return text;
}

void putFolder(DiskImage& image, const std::string& path) { image[path + '\\'] = ""; }

const char* kindCode(Server server) {
    switch (server) {
        case Server::Apache: return "1";
        case Server::IIS: return "0";
        case Server::Other: return "2";
    }
    return "";
}

}  // namespace

DiskImage imageOf(const SampleDisk& disk) {
    namespace fs = std::filesystem;
    const fs::path root = disk.disk.host("C:\\");
    DiskImage image;
    for (std::string path : disk.disk.tree("C:\\")) {
        const std::string place = "C:\\" + path;
        if (place == kSampleLog) continue;
        std::string& bytes = image[place];
        if (place.ends_with('\\')) continue;
        std::ranges::replace(path, '\\', '/');
        std::ifstream file(root / path, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
    }
    return image;
}

std::string differences(const DiskImage& expected, const DiskImage& actual) {
    if (expected == actual) return "";
    std::string lines;
    for (const auto& [path, bytes] : expected) {
        const auto found = actual.find(path);
        if (found == actual.end())
            lines += "missing: " + path + '\n';
        else if (found->second != bytes)
            lines += path + "\n  holds    " + readable(found->second) + "\n  not      " +
                     readable(bytes) + '\n';
    }
    for (const auto& [path, bytes] : actual) {
        if (!expected.contains(path)) lines += "too much: " + path + '\n';
    }
    return lines;
}

Site sampleSite(Server server, UrlStyle style) {
    const SampleServer& sample = sampleServer(server);
    return {server, style, sample.home, sample.scripts, "10.0.0.1", "8080"};
}

const char* nameOf(Server server) {
    switch (server) {
        case Server::Apache: return "Apache";
        case Server::IIS: return "IIS";
        case Server::Other: return "Other";
    }
    return "";
}

Lines placed(const Site& site, const Lines& paths) {
    Lines result;
    for (const std::string& path : paths) result.push_back(placed(site, path));
    return result;
}

Lines deployedFiles(const Site& site) { return placed(site, kDeployedFiles); }

Lines deployedFolders(const Site& site) { return placed(site, kDeployedFolders); }

std::vector<Copy> programCopies(const Site& site) {
    std::vector<Copy> result;
    add(result, site, kProgramCopies);
    return result;
}

std::vector<Copy> copies(const Site& site) {
    std::vector<Copy> result = programCopies(site);
    add(result, site, kSubFolderCopies);
    if (site.style == UrlStyle::SiteRoot) add(result, site, kSiteRootCopies);
    add(result, site, kImageCopies);
    return result;
}

Lines deleteCalls(const Site& site) { return prefixed("deleteFiles ", deployedFiles(site)); }

Lines removeCalls(const Site& site) { return prefixed("removeDirectory ", deployedFolders(site)); }

Lines copyCalls(const std::vector<Copy>& copies) {
    Lines lines;
    for (const auto& [from, to] : copies) lines.push_back("copyFile " + from + " -> " + to);
    return lines;
}

Lines settingsRows(const Site& site) {
    return {site.home + '\\',
            site.scripts + '\\',
            "C:\\Korvane\\",
            kindCode(site.server),
            site.style == UrlStyle::SiteRoot ? "0" : "1",
            site.ip,
            site.port};
}

std::string settingsBytes(const Lines& rows) {
    Lines lines{
        "#",
        "# *This file contains characters which cannot be displayed, please edit it with KORVANE "
        "only.",
        "#",
        "# *Header Section",
        "#",
        "00|T|1008",
        "01|V|1.3.0",
        "02|P|1",
        "03|D1|" + std::to_string(rows.size()),
        "04|D2|0",
        "05|D3|0",
        "06|D4|0",
        "07|D5|0",
        "08|D6|0",
        "09|D7|0",
        "010|D8|0",
        "#",
        "# *Peoperty Section",
        "#",
        "10|*kvi|C:\\Korvane\\",
    };
    if (!rows.empty()) {
        for (const char* comment : {"#", "# *Data Section 1", "#"}) lines.emplace_back(comment);
    }
    for (std::size_t i = 0; i < rows.size(); ++i)
        lines.push_back("2" + std::to_string(i) + "|2|" + rows[i]);
    return cfgBytes(lines);
}

std::string scriptsSettingsBytes(const Site& site) { return settingsBytes({site.home + '\\'}); }

Lines settingsCalls(const std::string& path, const std::string& bytes) {
    Lines calls{"openForWrite " + path};
    std::size_t begin = 0;
    for (const char* heading : {"#\r\n# *Peoperty Section", "#\r\n# *Data Section"}) {
        const std::size_t end = std::min(bytes.find(heading), bytes.size());
        calls.push_back("write " + path + ", " + std::to_string(end - begin) + " bytes");
        begin = end;
    }
    if (begin < bytes.size())
        calls.push_back("write " + path + ", " + std::to_string(bytes.size() - begin) + " bytes");
    calls.push_back("close " + path);
    return calls;
}

Lines rewritingCalls(const std::string& path, const std::string& bytes) {
    Lines calls = settingsCalls(path, bytes);
    calls.insert(calls.begin() + 1, "truncate " + path);
    return calls;
}

void putDeployment(DiskImage& image, const Site& site) {
    putFolder(image, site.scripts);  // IIS has none before
    putFolder(image, site.home + "\\images");
    for (const std::string& folder : deployedFolders(site)) putFolder(image, folder);
    for (const auto& [from, to] : copies(site)) image[to] = image.at(from);
    image[kSampleInstallationFile] = settingsBytes(settingsRows(site));
    image[site.scripts + "\\kv\\kvi\\kvi.cfg"] = scriptsSettingsBytes(site);
}

void removeDeployment(DiskImage& image, const Site& site) {
    for (const std::string& file : deployedFiles(site)) image.erase(file);
    for (const std::string& folder : deployedFolders(site)) image.erase(folder + '\\');
}

void unpackNewerFiles(DiskImage& image) {
    for (const auto& [from, to] : copies(sampleSite(Server::Apache, UrlStyle::SiteRoot)))
        image.at(from) += ", newer";
}

void bring(const DiskImage& image, SampleDisk& disk) {
    const DiskImage before = imageOf(disk);
    for (const auto& [path, bytes] : image) {
        const auto found = before.find(path);
        if (found != before.end() && found->second == bytes) continue;
        if (path.ends_with('\\'))
            disk.disk.makeFolder(path.substr(0, path.size() - 1));
        else
            disk.disk.write(path, bytes);
    }
}

void installBeforehand(SampleDisk& disk, const Site& site) {
    DiskImage image = imageOf(disk);
    putDeployment(image, site);
    bring(image, disk);
}

void unpackNewerFiles(SampleDisk& disk) {
    DiskImage image = imageOf(disk);
    unpackNewerFiles(image);
    bring(image, disk);
}

void describeSite(frmWebConfig& form, const Site& site) {
    const SampleServer& sample = sampleServer(site.server);
    (form.*sample.installed).click();
    form.cmdNext.click();
    (site.style == UrlStyle::SiteRoot ? form.optUrlDefault : form.optUrlKv).click();
    form.cmdNext.click();
    (form.*sample.homeBox).typed(site.home);
    (form.*sample.scriptsBox).typed(site.scripts);
    form.cmdNext.click();
    form.txtWebsiteIP.typed(site.ip);
    form.txtWebsitePort.typed(site.port);
    form.cmdNext.click();
}

Lines joined(std::vector<Lines> parts) {
    Lines all;
    for (Lines& part : parts) std::ranges::move(part, std::back_inserter(all));
    return all;
}

std::string firstDifference(const Lines& actual, const Lines& expected) {
    if (actual == expected) return "";
    const auto [is, wanted] = std::ranges::mismatch(actual, expected);
    return "line " + std::to_string(is - actual.begin()) + " is " +
           (is == actual.end() ? "missing" : *is) + "\nand not " +
           (wanted == expected.end() ? "missing" : *wanted);
}

std::string width(int twips) {
    return "lblProgress Box 360,1560," + std::to_string(twips) + ",255";
}

Lines widths(int from, int step, int count) {
    Lines lines;
    for (int i = 0; i < count; ++i) lines.push_back(width(from + i * step));
    return lines;
}

Lines finishPanelChanges(const RecordingObserver& observer) {
    Lines lines;
    for (const std::string& change : observer.changes) {
        if (change.starts_with("cmdFinish Enabled ") ||
            change.starts_with("lblFinishDescription Caption ") ||
            change.starts_with("lblFinishInstruction Caption ") ||
            change.starts_with("lblProgress Box ") || change.starts_with("picPanel(11) Visible"))
            lines.push_back(change);
    }
    return lines;
}

class Witness::File final : public OpenFile {
public:
    File(Witness& owner, std::unique_ptr<OpenFile> inner)
        : owner_(owner), inner_(std::move(inner)) {}

    void write(std::string_view bytes) override {
        owner_.witnessed([&] { inner_->write(bytes); });
    }
    std::size_t read(std::span<char> buffer) override {
        return owner_.witnessed([&] { return inner_->read(buffer); });
    }
    void truncate() override {
        owner_.witnessed([&] { inner_->truncate(); });
    }
    void close() override {
        owner_.witnessed([&] { inner_->close(); });
    }

private:
    Witness& owner_;
    std::unique_ptr<OpenFile> inner_;
};

void Witness::copyFile(const std::string& source, const std::string& destination) {
    witnessed([&] { inner_.copyFile(source, destination); });
}

void Witness::deleteFiles(const std::string& pattern) {
    witnessed([&] { inner_.deleteFiles(pattern); });
}

void Witness::makeDirectory(const std::string& path) {
    witnessed([&] { inner_.makeDirectory(path); });
}

void Witness::removeDirectory(const std::string& path) {
    witnessed([&] { inner_.removeDirectory(path); });
}

std::optional<std::string> Witness::findName(const std::string& path, Lookup lookup) {
    return inner_.findName(path, lookup);
}

std::int64_t Witness::fileLength(const std::string& path) {
    return witnessed([&] { return inner_.fileLength(path); });
}

std::unique_ptr<OpenFile> Witness::openForWrite(const std::string& path) {
    return witnessed([&]() -> std::unique_ptr<OpenFile> {
        return std::make_unique<File>(*this, inner_.openForWrite(path));
    });
}

std::unique_ptr<OpenFile> Witness::openForRead(const std::string& path) {
    return witnessed([&]() -> std::unique_ptr<OpenFile> {
        return std::make_unique<File>(*this, inner_.openForRead(path));
    });
}

void Witness::append(const std::string& path, std::string_view bytes) {
    witnessed([&] { inner_.append(path, bytes); });
}

WitnessedWizard::WitnessedWizard(FaultyFileSystem& files) : witness(files), files_(files) {
    observer.watch(form);
    program.load();
}

void WitnessedWizard::run() {
    files_.clearJournal();
    witness.failures.clear();
    observer.changes.clear();
    form.cmdNext.click();
}

}  // namespace kv
