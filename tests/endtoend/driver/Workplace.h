// A fresh folder for one scenario: a copy of the laid-out product and an empty web server beside
// it. What the wizard leaves there can be compared as a whole.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "tests/model/Product.h"

namespace kv::endtoend {

// A path of this machine or one of the Unix root, as Windows spells it.
std::string windowsPath(std::string path);

// The value of the environment's variable as a Windows path; throws when it is not set.
std::string pathFromEnvironment(const char* variable);

// Keeps a file open so that others may share it only as said; lets it go with the object.
class FileLock {
public:
    FileLock(const std::string& path, DWORD sharing, DWORD access = GENERIC_READ);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    HANDLE file_;
};

class Workplace {
public:
    explicit Workplace(const std::string& scenario);
    ~Workplace();
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    // Folders and files by their full paths.
    std::string root() const { return root_; }
    std::string product() const { return path("product"); }
    std::string program() const { return path("product\\bin\\kvwcfg.exe"); }
    std::string home() const { return path("server\\htdocs"); }
    std::string scripts() const { return path("server\\cgi-bin"); }
    std::string path(std::string_view relative) const;

    // A web server in these folders, and the product, all relative to root().
    Site site(const std::string& home, const std::string& scripts, Server kind = Server::Apache,
              UrlStyle style = UrlStyle::SiteRoot) const {
        return {kind, style, home, scripts, "", "", "product", root_ + "\\"};
    }

    // Everything below takes paths relative to root().
    Tree tree() const;
    bool exists(std::string_view relative) const;
    std::string read(std::string_view relative) const;
    void write(std::string_view relative, std::string_view bytes) const;  // makes its folders
    void makeFolder(std::string_view relative) const;
    void bring(const Tree& wanted) const;  // writes and makes what is not so yet
    void makeFileOfLength(std::string_view relative, long length) const;
    void makeReadOnly(std::string_view relative) const;
    // In place of all other marks; whether the disk keeps it (FILE_ATTRIBUTE_...).
    bool mark(std::string_view relative, DWORD attributes) const;
    bool honoursReadOnly() const;  // not when a Unix superuser runs Wine
    void remove(std::string_view relative) const;
    // A symbolic link to a file; whether the system has let it be made.
    bool link(std::string_view relative, std::string_view target) const;
    std::unique_ptr<FileLock> lock(std::string_view relative, DWORD sharing = 0) const;

private:
    std::string root_;
};

// A folder outside the scenario's, such as a server's standard place on a drive. Where it was made
// for the object, it and the parents made for it are removed with the object.
class BorrowedFolder {
public:
    explicit BorrowedFolder(const std::filesystem::path& path);
    ~BorrowedFolder();
    BorrowedFolder(const BorrowedFolder&) = delete;
    BorrowedFolder& operator=(const BorrowedFolder&) = delete;

private:
    std::filesystem::path topmost_;
};

// A drive letter that stands for a folder, as with "subst".
class BorrowedDrive {
public:
    BorrowedDrive(char letter, const std::string& folder);
    ~BorrowedDrive();
    BorrowedDrive(const BorrowedDrive&) = delete;
    BorrowedDrive& operator=(const BorrowedDrive&) = delete;

    bool works() const { return works_; }

private:
    void define(bool remove) const;

    std::string name_;
    std::string folder_;
    bool works_ = false;
};

}  // namespace kv::endtoend
