// The recent files of the File menu.
#pragma once

#include "settings/settings_file.h"

#include <string>
#include <vector>

namespace kelvane {

/// The files opened or saved last, the most recent first, each with a flag that says whether the
/// converter opens it. Entries are counted from 1; an entry that does not exist reads as an empty
/// name without flag.
class cMRUFileList {
  public:
    /// Capacity. A smaller one drops the oldest entries; below 1 it is ignored.
    int MaxFileCount() const { return capacity_; }
    void MaxFileCount(int capacity);
    /// Number of entries. A list loaded from an edited settings file may exceed the capacity.
    int FileCount() const { return static_cast<int>(entries_.size()); }

    std::wstring file(int i) const;
    bool fileflag(int i) const;
    /// Whether entry `i` has a name; the disk is not asked.
    bool FileExists(int i) const { return !file(i).empty(); }

    /// Caption of entry `i` in the menu: its number as access key and its path, which loses its
    /// beginning when it has more than 32 characters ("&1)  ...\folder\picture.bmp").
    std::wstring MenuCaption(int i) const;

    /// Puts a file to the top with the given flag. Paths are compared without regard to case; the
    /// new spelling replaces the old one. A full list loses its oldest entry.
    void AddFile(const std::wstring& file, bool flag);

    /// Replaces the list in the settings file.
    void Save(const SettingsFile& file) const;
    /// Takes capacity and entries from the settings file; what is missing there stays as it is.
    void Load(const SettingsFile& file);
    /// Loads again and adds on top the entries added since the first `Load`, so that entries saved
    /// by another running program are kept. To be called before `Save`.
    void Merge(const SettingsFile& file);

  private:
    struct Entry {
        std::wstring file;
        bool flag = false;
    };
    bool has(int i) const { return i >= 1 && i <= FileCount(); }

    int capacity_ = 4;
    std::vector<Entry> entries_;
    std::size_t added_ = 0; // number of entries at the top added since `Load`
};

} // namespace kelvane
