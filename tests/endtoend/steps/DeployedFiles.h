// What an installation puts into a web server: names, places and order.
#pragma once

#include <array>
#include <string_view>

namespace kv::endtoend {

inline constexpr std::array<std::string_view, 11> kPrograms{
    "kv.exe",    "kvabout.exe", "kvcfg.exe", "kvclpbd.exe", "kvdir.exe", "kvfile.exe",
    "kvhlp.exe", "kvimg.exe",   "kvjs.exe",  "kvlogon.exe", "kvwlcm.exe"};
inline constexpr std::array<std::string_view, 2> kLibraries{"qtmdb.dll", "QTnbwB.dll"};
inline constexpr std::array<std::string_view, 3> kWebFiles{"favicon.ico", "index.html",
                                                           "Default.htm"};
inline constexpr std::array<std::string_view, 21> kImages{
    "arrowlsd.gif",     "arrowlse.gif",   "arrowrsd.gif",    "arrowrse.gif",     "arrowtopd.gif",
    "arrowtope.gif",    "arrowupd.gif",   "arrowupe.gif",    "btn-bgr.gif",      "chk_no11x11.gif",
    "chk_yes11x11.gif", "close16x16.gif", "kvlogo30x60.gif", "kvlogo60x120.gif", "kvlogo80x160.gif",
    "kvsite42x530.gif", "file11x11.gif",  "folder11x11.gif", "quest_b.gif",      "red_dot1x1.gif",
    "red_v1x2.gif"};
// Below the document root and below the scripts folder, in the order of their making.
inline constexpr std::array<std::string_view, 5> kHomeFolders{
    "kv", "images", "images\\kv", "images\\kv\\cimg", "images\\kv\\kvimg"};
inline constexpr std::array<std::string_view, 2> kScriptsFolders{"kv", "kv\\kvi"};

}  // namespace kv::endtoend
