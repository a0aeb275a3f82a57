// The names of files and folders that the wizard has deleted while another program had them open.
// Such a file goes when that program closes it; until then Windows lets nobody else open it. Some
// disks of the network, and Wine, do: what is copied onto it would go with it, so its name is to be
// let alone.
#pragma once

#include <string>
#include <vector>

namespace kv {

class KeptNames {
public:
    // To be called right after a file's or folder's deletion.
    void noteDeleted(const std::wstring& path);

    // Whether the path is that of such a file, which has not gone yet.
    bool contain(const std::wstring& path);

private:
    std::vector<std::wstring> paths_;
};

}  // namespace kv
