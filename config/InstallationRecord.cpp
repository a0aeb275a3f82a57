#include "config/InstallationRecord.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kv {
namespace {

constexpr std::size_t kWrittenDistance = 3;

auto place(std::size_t row) { return static_cast<std::ptrdiff_t>(row); }

}  // namespace

InstallEntry entryAt(const std::vector<std::string>& rows, std::size_t row) {
    InstallEntry entry;
    std::copy_n(rows.begin() + place(row), kInstallColumns, entry.fields.begin());
    std::swap(entry.fields[0], entry.fields[1]);
    return entry;
}

void placeEntry(const InstallEntry& entry, std::size_t n, std::vector<std::string>& rows) {
    auto columns = entry.fields;
    std::swap(columns[0], columns[1]);
    std::ranges::move(columns, rows.begin() + place(n * kWrittenDistance));
}

}  // namespace kv
