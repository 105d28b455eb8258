// A temporary folder for one test, removed in the destructor.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace kelvane::test {

class TemporaryFolder {
  public:
    /// The folder's name ends in `suffix`. It is in the folder that the environment names, if any.
    explicit TemporaryFolder(const std::filesystem::path& suffix = {})
        : path_(base() / ("kelvane-test-" + std::to_string(std::random_device{}()))) {
        path_ += suffix;
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return path_ / name;
    }

  private:
    static std::filesystem::path base() {
        const char* const folder = std::getenv("KELVANE_TEST_FOLDER");
        return folder ? std::filesystem::absolute(folder) : std::filesystem::temp_directory_path();
    }

    std::filesystem::path path_;
};

inline std::string file_text(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

inline void write_text(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

} // namespace kelvane::test
