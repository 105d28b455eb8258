// A folder of its own for each test.
#pragma once

#include "settings/folders.h"
#include "settings/settings_file.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kelvane {

/// Made in the folder for temporary files and removed again; its name is in several scripts.
class ScratchFolder {
  public:
    ScratchFolder() {
        std::wstring name = TempFileName(L"kel", L"");
        std::filesystem::remove(name);
        path_ = name + L" Größe \x0434\x0443\x0433\x0430 \x4E2D\x6587";
        std::filesystem::create_directory(path_);
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path ini() const { return path_ / L"kelvane.ini"; }
    SettingsFile settings() const { return SettingsFile(ini()); }
    void put(const std::string& bytes) const { std::ofstream(ini(), std::ios::binary) << bytes; }
    std::string bytes() const {
        std::ifstream in(ini(), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

  private:
    std::filesystem::path path_;
};

} // namespace kelvane
