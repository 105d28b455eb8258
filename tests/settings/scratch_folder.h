// A folder with a settings file of its own for each test.
#pragma once

#include "settings/settings_file.h"
#include "support/temporary_folder.h"

namespace kelvane {

/// Its name is in several scripts.
class ScratchFolder : public test::TemporaryFolder {
  public:
    ScratchFolder() : TemporaryFolder(L" Größe \x0434\x0443\x0433\x0430 \x4E2D\x6587") {}

    std::filesystem::path ini() const { return *this / L"kelvane.ini"; }
    SettingsFile settings() const { return SettingsFile(ini()); }
    void put(const std::string& bytes) const { test::write_text(ini(), bytes); }
    std::string bytes() const { return test::file_text(ini()); }
};

} // namespace kelvane
