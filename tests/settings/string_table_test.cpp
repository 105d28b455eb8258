#include "settings/string_table.h"

#include "ids.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace kelvane {
namespace {

constexpr int kFirst = 3900;
constexpr int kLast = 7413;

bool exists(int number) {
    wchar_t first[2];
    return LoadStringW(nullptr, static_cast<UINT>(number), first, 2) != 0;
}

std::vector<int> every_id() {
    std::ifstream in(KELVANE_IDS);
    std::vector<int> ids;
    std::string word, name;
    int number = 0;
    for (std::string line; std::getline(in, line);)
        if (std::istringstream(line) >> word >> name >> number && word == "#define" &&
            name.starts_with("IDS_") && !name.starts_with("IDS_LAYER_"))
            ids.push_back(number);
    return ids;
}

// The parts of a text that the program relies on and that no translation may change: fields to
// fill in, blanks at the ends, file patterns of a filter.
std::wstring frame(const std::wstring& text) {
    std::multiset<wchar_t> fields;
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == L'%' && std::iswdigit(text[i + 1])) fields.insert(text[i + 1]);
    std::wstring result(fields.begin(), fields.end());
    result += L'<' + text.substr(0, text.find_first_not_of(L' '));
    result += L'>' + text.substr(std::min(text.find_last_not_of(L' ') + 1, text.size()));
    std::wistringstream parts(text);
    std::wstring part;
    for (int i = 0; std::getline(parts, part, L'|'); ++i)
        if (i % 2 == 1) result += L'|' + part;
    return result;
}

TEST(StringTable, EveryTextIsThereInBothLanguages) {
    const std::vector<int> ids = every_id();
    ASSERT_GT(ids.size(), 200u);
    for (const int id : ids) {
        EXPECT_TRUE(id >= kFirst && id <= kLast) << id;
        ASSERT_TRUE(exists(id) && exists(id + kEnglishOffset)) << id;
        EXPECT_EQ(frame(load_fixed_string(id)), frame(load_fixed_string(id + kEnglishOffset)))
            << id;
    }
    for (int id = kFirst; id <= kLast; ++id) {
        const bool named = std::count(ids.begin(), ids.end(), id) == 1;
        EXPECT_EQ(exists(id), named) << id;
        EXPECT_EQ(exists(id + kEnglishOffset), named) << id;
    }
}

// What stands in one menu.
const std::vector<int> kMenus[] = {
    {IDS_MENU_FILE, IDS_MENU_EDIT, IDS_MENU_IMAGE, IDS_MENU_COLORS, IDS_MENU_WINDOW, IDS_MENU_HELP},
    {IDS_MENU_OPEN, IDS_MENU_OPEN_BY_IMAGEMAGICK, IDS_MENU_SAVE, IDS_MENU_EXPORT, IDS_MENU_IMPORT,
     IDS_MENU_CLOSE, IDS_MENU_EXIT},
    {IDS_MENU_SOFTENING_FILTERS, IDS_MENU_SHARPENING_FILTERS, IDS_MENU_SPECIAL_FILTERS,
     IDS_MENU_CUSTOM_FILTERS, IDS_MENU_RESAMPLE, IDS_MENU_COMBINE, IDS_MENU_EMPHASIZE},
    {IDS_MENU_DARKEN, IDS_MENU_LIGHTEN, IDS_MENU_COLOURISE, IDS_MENU_NEGATIVE, IDS_MENU_GRAY_SCALE,
     IDS_MENU_FLOYD_STEINBERG, IDS_MENU_APPLY_PALETTE, IDS_MENU_REDUCE, IDS_MENU_VECTORIZE},
    {IDS_MENU_HELP_CONTENTS, IDS_MENU_ABOUT, IDS_MENU_LANGUAGE},
    {IDS_MENU_SELECT_SOURCE, IDS_MENU_ACQUIRE},
    {IDS_MENU_UNDO, IDS_MENU_COPY, IDS_MENU_PASTE},
    {IDS_MENU_SOFTEN, IDS_MENU_SOFTEN_MORE, IDS_MENU_BLUR, IDS_MENU_BLUR_MORE},
    {IDS_MENU_SHARPEN, IDS_MENU_SHARPEN_MORE, IDS_MENU_UNSHARP},
    {IDS_MENU_EMBOSS, IDS_MENU_ADD_NOISE, IDS_MENU_MINIMUM, IDS_MENU_MEDIAN, IDS_MENU_MAXIMUM},
    {IDS_MENU_TILE_HORIZONTALLY, IDS_MENU_TILE_VERTICALLY, IDS_MENU_CASCADE,
     IDS_MENU_ARRANGE_ICONS}};

// Where the numbers of each dialog's texts begin; they end before the next.
const int kDialogs[] = {4200, 4300, 4400, 4410, 4500, 4600, 4700, 4800, 4819, 4825,
                        5000, 5100, 7000, 7100, 7200, 7300, 7312, 7400, 7414};

std::vector<std::vector<int>> windows() {
    std::vector<std::vector<int>> windows(std::begin(kMenus), std::end(kMenus));
    for (const int* first = kDialogs; first + 1 < std::end(kDialogs); ++first) {
        windows.emplace_back();
        for (int id = *first; id < first[1]; ++id)
            if (exists(id)) windows.back().push_back(id);
    }
    return windows;
}

// The English captions are fixed, and these pairs of them share a key.
const std::set<std::pair<int, int>> kKnownPairs = {
    {IDS_MENU_CUSTOM_FILTERS, IDS_MENU_COMBINE},
    {IDS_MENU_SPECIAL_FILTERS, IDS_MENU_EMPHASIZE},
    {IDS_MENU_SHARPEN, IDS_MENU_SHARPEN_MORE},
    {IDS_MENU_ADD_NOISE, IDS_MENU_MEDIAN},
    {IDS_EXPORT_LINEWISE_WIRE, IDS_EXPORT_LINEWISE_RECTANGLE},
    {IDS_CUSTOM_AUTO, IDS_CUSTOM_CANCEL}};

// The key is the character behind the first "&" that is not doubled.
wchar_t access_key(const std::wstring& caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != L'&') continue;
        if (caption[i + 1] != L'&') return static_cast<wchar_t>(std::towupper(caption[i + 1]));
        ++i;
    }
    return 0;
}

std::set<std::pair<int, int>> colliding_pairs(int offset) {
    std::set<std::pair<int, int>> pairs;
    for (const std::vector<int>& window : windows()) {
        std::map<wchar_t, int> taken;
        for (const int id : window) {
            const wchar_t key = access_key(load_fixed_string(id + offset));
            const auto [at, is_new] = taken.try_emplace(key, id);
            if (key != 0 && !is_new) pairs.emplace(at->second, id);
        }
    }
    return pairs;
}

TEST(StringTable, AccessKeysDifferWithinAMenuOrDialog) {
    EXPECT_THAT(colliding_pairs(kGermanOffset), testing::IsEmpty());
    EXPECT_EQ(colliding_pairs(kEnglishOffset), kKnownPairs);
}

TEST(StringTable, LanguageSwitchesAndFieldsAreFilled) {
    EXPECT_EQ(language_offset(), kEnglishOffset) << "English is the language to start with";
    EXPECT_EQ(LoadString(IDS_EXPORT_HINT).substr(0, 25), L"If the Preview is to dark");
    EXPECT_EQ(LoadString(IDS_SUBIMAGE_NUMBER, {L"%2", L"10"}), L"Image %2 of 10");
    set_language_offset(kGermanOffset);
    EXPECT_EQ(LoadString(IDS_MENU_UNDO), L"&Rückgängig");
    for (const int offset : {5000, -1000000, 0x7FFFFFFF}) {
        set_language_offset(offset);
        EXPECT_THROW(LoadString(IDS_TITLE), MissingTextError) << offset;
    }
    set_language_offset(kEnglishOffset);
}

} // namespace
} // namespace kelvane
