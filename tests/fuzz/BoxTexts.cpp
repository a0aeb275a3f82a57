// What a user enters into the boxes of a panel: the bytes before the first line feed are the home
// folder, the rest is the scripts folder, which go through the checks of each server kind; and then
// they are an address and a port.
#include <algorithm>
#include <array>

#include "process/FolderCheck.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/support/Wizard.h"
#include "wizard/panels/InputChecks.h"

namespace kv {
namespace {

// A plain file passes for a folder: the look-up does not tell them apart.
constexpr std::string_view kFile = "C:\\www\\file";
constexpr std::array<std::string_view, 8> kThere{
    "C:\\www",     "C:\\www\\htdocs", "C:\\www\\cgi-bin",   kFile,
    "C:\\Inetpub", "C:\\My Sites",    "C:\\My Sites\\a.b ", "C:\\log"};

constexpr std::string_view kEnterPath = "Please enter folder's full path name.";

std::string lower(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return result;
}

// The letter case of the last part counts, that of the others does not.
bool exists(std::string_view folder) {
    return std::ranges::any_of(kThere, [&](std::string_view there) {
        return lower(there) == lower(folder) &&
               there.substr(there.rfind('\\')) == folder.substr(folder.rfind('\\'));
    });
}

struct Outcome {
    bool passes = false;
    Lines messages = {};
    std::string kept;  // the box's text afterwards
};

Outcome noFullPath(const std::string& text) {
    return {.messages = {"\"" + text +
                         "\" cannot be used. Please enter folder's full path name, such as "
                         "C:\\Inetpub\\scripts."},
            .kept = text};
}

Outcome expectedOf(const std::string& typed, bool parentOnly) {
    if (withoutBlanks(typed).empty()) return {.messages = {std::string(kEnterPath)}, .kept = typed};
    std::string kept = typed;
    if (kept.back() == '\\') kept.pop_back();
    std::string tested = kept;
    if (parentOnly && tested.find('\\') != tested.npos)
        tested.resize(tested.rfind('\\'));
    else if (parentOnly)
        return noFullPath(kept);
    if (tested.find('\\') == tested.npos) return noFullPath(kept);
    if (exists(tested)) return {.passes = true, .kept = kept};
    return {.messages = {"\"" + tested + "\" does not exist."}, .kept = kept};
}

struct Kind {
    OptionButton frmWebConfig::*option;
    TextBox frmWebConfig::*home;
    TextBox frmWebConfig::*scripts;
    bool parentOfScripts;  // only the scripts folder's parent must exist
};

constexpr std::array<Kind, 3> kKinds{{
    {&frmWebConfig::optInstalledApache, &frmWebConfig::txtFolderHomeApache,
     &frmWebConfig::txtFolderScriptsApache, false},
    {&frmWebConfig::optInstalledIIS, &frmWebConfig::txtFolderHomeIIS,
     &frmWebConfig::txtFolderScriptsIIS, true},
    {&frmWebConfig::optInstalledOther, &frmWebConfig::txtFolderHomeOthers,
     &frmWebConfig::txtFolderScriptsOthers, false},
}};

void tryFolders(const Kind& kind, const std::string& home, const std::string& scripts) {
    std::map<std::string, std::string> image;
    for (const std::string_view place : kThere)
        image[std::string(place) + (place == kFile ? "" : "\\")] = "";
    FuzzBench bench(image);
    static frmWebConfig form;
    FakeMessageBoxes messages;
    const LeadBytes leadBytes;
    FolderCheck folderCheck(bench.files, messages, leadBytes);
    InputChecks checks(form, folderCheck, messages);
    (form.*kind.option).setValue(true);
    (form.*kind.home).typed(home);
    (form.*kind.scripts).typed(scripts);

    const bool passes = checks.foldersPass();

    const Outcome ofHome = expectedOf(home, false);
    Outcome expected = ofHome;
    if (ofHome.passes) expected = expectedOf(scripts, kind.parentOfScripts);
    claim(passes == expected.passes, "existing folders pass, others do not");
    claim(messages.informations == expected.messages, "the user is told what is wrong, once");
    claim((form.*kind.home).text() == ofHome.kept, "the home box loses one backslash at most");
    claim((form.*kind.scripts).text() == (ofHome.passes ? expected.kept : scripts),
          "the scripts box is looked at only when the home folder passes");
}

// A number in the places of an automaton: each state is named by what has been read.
bool isNumber(std::string_view text) {
    enum {
        Start,
        Sign,
        Digits,
        Point,
        PointOnly,
        Exponent,
        ExponentSign,
        ExponentDigits
    } state = Start;
    for (const char c : withoutBlanks(text)) {
        const bool digit = c >= '0' && c <= '9';
        const bool sign = c == '+' || c == '-';
        const bool exponent = c == 'e' || c == 'E';
        switch (state) {
            case Start:
                if (sign) {
                    state = Sign;
                    break;
                }
                [[fallthrough]];
            case Sign:
                if (!digit && c != '.') return false;
                state = digit ? Digits : PointOnly;
                break;
            case Digits:
                if (!digit && c != '.' && !exponent) return false;
                if (!digit) state = exponent ? Exponent : Point;
                break;
            case PointOnly:
                if (!digit) return false;
                state = Point;
                break;
            case Point:
                if (!digit && !exponent) return false;
                if (exponent) state = Exponent;
                break;
            case Exponent:
                if (!digit && !sign) return false;
                state = sign ? ExponentSign : ExponentDigits;
                break;
            case ExponentSign:
            case ExponentDigits:
                if (!digit) return false;
                state = ExponentDigits;
                break;
        }
    }
    return state == Digits || state == Point || state == ExponentDigits;
}

void tryWebsite(const std::string& ip, const std::string& port) {
    FuzzBench bench;
    static frmWebConfig form;
    FakeMessageBoxes messages;
    const LeadBytes leadBytes;
    FolderCheck folderCheck(bench.files, messages, leadBytes);
    InputChecks checks(form, folderCheck, messages);
    form.txtWebsiteIP.typed(ip);
    form.txtWebsitePort.typed(port);

    const bool passes = checks.websitePasses();

    const std::string trimmedIp(withoutBlanks(ip));
    const Lines parts = partsOf(trimmedIp, ".");
    const bool ipGood =
        trimmedIp.empty() || (parts.size() == 4 && std::ranges::all_of(parts, isNumber));
    const std::string trimmedPort(withoutBlanks(port));
    const bool portGood = trimmedPort.empty() || isNumber(trimmedPort);
    Lines expected;
    if (!ipGood) expected.emplace_back("The Web site IP address is incorrect.");
    if (!portGood) expected.emplace_back("The Web site Port is incorrect.");
    std::string keptIp = ipGood ? "" : ip;
    for (std::size_t i = 0; ipGood && i < parts.size(); ++i)
        keptIp += (i == 0 ? "" : ".") + std::string(withoutBlanks(parts[i]));

    claim(passes == (ipGood && portGood), "two optional fields pass together or not");
    claim(messages.informations == expected, "each wrong field has its message, the address first");
    claim(form.txtWebsiteIP.text() == keptIp, "an accepted address loses its blanks");
    claim(form.txtWebsitePort.text() == (portGood ? trimmedPort : port),
          "an accepted port loses its blanks");
}

}  // namespace

void tryInput(std::string_view input) {
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string first(input.substr(0, end));
    const std::string second(input.substr(std::min(end + 1, input.size())));
    for (const Kind& kind : kKinds) tryFolders(kind, first, second);
    tryWebsite(first, second);
}

}  // namespace kv
