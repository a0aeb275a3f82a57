// The texts of the web site's fields: the bytes before the first line feed are the IP address, the
// rest is the port.
#include <algorithm>

#include "process/FolderCheck.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/support/Wizard.h"
#include "wizard/panels/InputChecks.h"

namespace kv {
namespace {

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

void tryTexts(const std::string& ip, const std::string& port) {
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
    tryTexts(std::string(input.substr(0, end)),
             std::string(input.substr(std::min(end + 1, input.size()))));
}

}  // namespace kv
