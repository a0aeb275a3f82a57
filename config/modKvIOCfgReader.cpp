#include "common/FailureHandler.h"
#include "common/Numbers.h"
#include "common/Text.h"
#include "config/modKvIOCfg.h"

namespace kv {
namespace {

enum Section : std::int16_t { Header = 0, Properties = 1, Data = 2 };

// How far the parse has come: the section, and how many of its items have been read. 16-bit, as
// the counts in the header are.
class ParsePosition {
public:
    std::int16_t section() const noexcept { return section_; }

    // Counts one item; after the last of a section of the given size the next section begins.
    void advance(std::int16_t sectionSize) {
        if (count_ != sectionSize - 1) {
            count_ = checkedInt16(count_ + 1);
        } else {
            section_ = checkedInt16(section_ + 1);
            count_ = 0;
        }
    }

private:
    std::int16_t section_ = Header;
    std::int16_t count_ = 0;
};

// One item line's fields, as parts of the line.
struct ItemParts {
    std::string_view section;
    std::string_view index;
    std::string_view value;
};

// Splits one line; when that cannot be done, the parts stay as they were.
int splitItem(std::string_view line, ItemParts& item) noexcept {
    if (line.find_first_not_of(' ') == std::string_view::npos) return 0;

    const auto aroundSep1 = splitInTwo(line, kSep1);
    if (!aroundSep1) return kCfgMalformed;
    const std::string_view key = trim(aroundSep1->before);
    if (!isNumeric(key)) return kCfgKeyNotNumeric;
    // What stands before the first separator holds none of the other kind: it is a number.
    const auto aroundSep2 = splitInTwo(aroundSep1->after, kSep2);
    if (!aroundSep2) return kCfgMalformed;
    item = {key.substr(0, 1), key.substr(1), trim(aroundSep2->after)};
    return 0;
}

// Far more rows than the writer's 16-bit count can number; a larger D1 is damage, and must not take
// the computer's memory.
constexpr std::int32_t kMaxUpperIndex = 1'000'000;

void resizeTo(std::vector<std::string>& data, std::int32_t upperIndex) {
    if (upperIndex < 0) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    if (upperIndex > kMaxUpperIndex) throw RunTimeError(ErrorNumber::OutOfMemory);
    data.clear();
    data.resize(static_cast<std::size_t>(upperIndex) + 1);
}

}  // namespace

int modKvIOCfg::iocCfgReadFileParseData(std::string_view text, CfgHeader& header,
                                        std::span<std::string> properties,
                                        std::vector<std::string>& data) noexcept {
    int result = 0;
    const int failure = FailureHandler(log_, "iocCfgReadFileParseData")([&] {
        if (trim(text).empty()) {
            result = kCfgTextEmpty;
            return;
        }

        ParsePosition position;
        bool dataAllowed = false;
        ItemParts item;
        std::optional<std::string_view> rest = text;
        while (const auto line = takePart(rest, kLineEnd)) {
            if (line->empty() || line->front() == '#') continue;

            // A malformed line leaves the previous item in place, which is then stored and counted
            // once more: files that older versions damaged in this way stay readable.
            splitItem(*line, item);
            if (toInt16(item.section) != position.section()) {
                result = kCfgMalformed;
                return;
            }
            if (position.section() == Header) {
                const std::int16_t index = toInt16(item.index);
                elementAt(header, index) = item.value;
                position.advance(static_cast<std::int16_t>(header.size()));
                if (index == kHeaderRowCount) {
                    resizeTo(data, toInt32(item.value));
                    dataAllowed = true;
                }
            } else if (position.section() == Properties) {
                elementAt(properties, toInt16(item.index)) = item.value;
                position.advance(toInt16(header[kHeaderPropertyCount]));
            } else {
                if (!dataAllowed) {
                    result = kCfgMalformed;
                    return;
                }
                elementAt(data, toInt32(item.index)) = item.value;
            }
        }
    });
    return failure != 0 ? failure : result;
}

int modKvIOCfg::iocfgReadConfigRetrieveValue(std::string_view line, CfgItem& item) noexcept {
    int result = 0;
    const int failure = FailureHandler(log_, "iocfgReadConfigRetrieveValue")([&] {
        ItemParts parts{item.section, item.index, item.value};
        result = splitItem(line, parts);
        item = {std::string(parts.section), std::string(parts.index), std::string(parts.value)};
    });
    return failure != 0 ? failure : result;
}

}  // namespace kv
