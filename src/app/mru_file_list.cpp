#include "app/mru_file_list.h"

#include "settings/catalogue.h"
#include "win/names.h"

#include <algorithm>

namespace kelvane {
namespace {

constexpr std::size_t kLongestShown = 32; // characters

// The number of entries in the file may exceed the capacity. This limit is for damaged files, which
// may claim billions, each of which would be read.
constexpr int kMostLoaded = 100;

// "..." and the longest end of the path that begins with a backslash and fits. A file name that is
// too long for that is shown whole.
std::wstring shortened(const std::wstring& path) {
    if (path.size() <= kLongestShown) return path;
    std::size_t shown_from = std::wstring::npos;
    for (std::size_t k = path.size(); k-- > 0;) {
        if (path[k] != L'\\') continue;
        const bool fits = path.size() - k <= kLongestShown;
        if (fits || shown_from == std::wstring::npos) shown_from = k;
        if (!fits) break;
    }
    return shown_from == std::wstring::npos ? path : L"..." + path.substr(shown_from);
}

} // namespace

void cMRUFileList::MaxFileCount(int capacity) {
    if (capacity < 1 || capacity == capacity_) return;
    capacity_ = capacity;
    if (FileCount() > capacity) entries_.resize(static_cast<std::size_t>(capacity));
    added_ = std::min(added_, entries_.size());
}

std::wstring cMRUFileList::file(int i) const {
    return has(i) ? entries_[static_cast<std::size_t>(i - 1)].file : std::wstring();
}

bool cMRUFileList::fileflag(int i) const {
    return has(i) && entries_[static_cast<std::size_t>(i - 1)].flag;
}

std::wstring cMRUFileList::MenuCaption(int i) const {
    return L"&" + std::to_wstring(i) + L")  " + shortened(file(i));
}

void cMRUFileList::AddFile(const std::wstring& file, bool flag) {
    const auto known = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return win::compare_names(entry.file, file) == 0;
    });
    const bool added_before = known < entries_.begin() + static_cast<std::ptrdiff_t>(added_);
    if (known != entries_.end())
        entries_.erase(known);
    else if (FileCount() >= capacity_)
        entries_.pop_back();
    entries_.insert(entries_.begin(), Entry{file, flag});
    if (!added_before) added_ = std::min(added_ + 1, entries_.size());
}

void cMRUFileList::Save(const SettingsFile& file) const {
    file.DeleteIniSection(settings::kRecentSection);
    write_setting(file, settings::kRecentCapacity, capacity_);
    write_setting(file, settings::kRecentCount, FileCount());
    for (int i = 1; i <= FileCount(); ++i) {
        const Entry& entry = entries_[static_cast<std::size_t>(i - 1)];
        write_setting(file, Numbered{settings::kRecentFile, i}, entry.file);
        write_setting(file, Numbered{settings::kRecentFlag, i}, entry.flag ? 1 : 0);
    }
}

void cMRUFileList::Load(const SettingsFile& file) {
    MaxFileCount(read_setting(file, settings::kRecentCapacity).value_or(capacity_));
    const auto count = read_setting(file, settings::kRecentCount);
    if (!count) return;
    entries_.resize(static_cast<std::size_t>(std::clamp(*count, 0, kMostLoaded)));
    added_ = 0;
    for (int i = 1; i <= FileCount(); ++i) {
        Entry& entry = entries_[static_cast<std::size_t>(i - 1)];
        entry.file = read_setting(file, Numbered{settings::kRecentFile, i});
        entry.flag = read_setting(file, Numbered{settings::kRecentFlag, i}) != 0;
    }
}

void cMRUFileList::Merge(const SettingsFile& file) {
    cMRUFileList merged;
    merged.MaxFileCount(capacity_);
    merged.Load(file);
    for (std::size_t i = added_; i-- > 0;)
        merged.AddFile(entries_[i].file, entries_[i].flag);
    *this = std::move(merged);
}

} // namespace kelvane
