// What lies on a disk, and lists of lines; and what tells two of them apart.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace kv {

using Lines = std::vector<std::string>;

// The files (path, bytes) and folders (path with a "\" at its end, no bytes) of a place.
using Tree = std::map<std::string, std::string>;

// A line for each path in which the trees differ, with what it holds in both; nothing when they are
// equal.
std::string differences(const Tree& expected, const Tree& actual);

// The first line in which long lists differ; nothing when they are equal.
std::string firstDifference(const Lines& actual, const Lines& expected);

// The lists one after the other.
Lines joined(const std::vector<Lines>& lists);

}  // namespace kv
