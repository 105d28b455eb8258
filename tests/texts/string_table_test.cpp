// The string table and what the texts of layers and of errors take from it.
#include "base/text.h"
#include "texts/error_text.h"
#include "texts/file_error_text.h"
#include "texts/layer_names.h"
#include "texts/string_table.h"
#include "win/platform_error.h"

#include "ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <fstream>
#include <set>
#include <sstream>
#include <vector>

namespace kelvane {
namespace {

constexpr int kFirst = 3900;
constexpr int kLast = 7423;

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

TEST(StringTable, LanguageSwitchesAndFieldsAreFilled) {
    EXPECT_EQ(language_offset(), kEnglishOffset) << "English is the language to start with";
    EXPECT_EQ(LoadString(IDS_EXPORT_HINT).substr(0, 25), L"If the Preview is to dark");
    EXPECT_EQ(LoadString(IDS_SUBIMAGE_NUMBER, {L"%2", L"10"}), L"Image %2 of 10");
    EXPECT_EQ(LoadString(IDS_SUBIMAGE_NUMBER, {L"3"}), L"Image 3 of %2");
    set_language_offset(kGermanOffset);
    EXPECT_EQ(LoadString(IDS_MENU_UNDO), L"&Rückgängig");
    for (const int offset : {5000, -1000000, 0x10000}) {
        set_language_offset(offset);
        EXPECT_THROW(LoadString(IDS_TITLE), MissingTextError) << offset;
    }
    set_language_offset(kEnglishOffset);
}

TEST(LayerList, HasAllLayersAndTheShift) {
    const std::vector<std::wstring> labels = layer_labels();
    ASSERT_EQ(labels.size(), 255u);
    const std::pair<int, const wchar_t*> kLabels[] = {
        {1, L"1  Top (B)"},      {49, L"49 Reference (B)"}, {50, L"51 tDocu (B)"},
        {51, L"52 bDocu (B)"},   {52, L" Userdefined"},     {53, L"53 Userdefined"},
        {90, L"90 Userdefined"}, {91, L"91 Nets (S)"},      {96, L"96 Values (S)"},
        {97, L"97 Userdefined"}, {255, L"255 Userdefined"}};
    for (const auto& [position, label] : kLabels)
        EXPECT_EQ(labels[static_cast<std::size_t>(position - 1)], label);
}

TEST(FileErrorText, IsTheCommandLinesInEnglishAndTranslated) {
    for (std::size_t i = 1; i < kFileFaults; ++i) {
        const FileError error(static_cast<FileFault>(i), "7");
        const std::wstring english = file_error_text(error);
        EXPECT_EQ(english, wide_text(error.what()));
        set_language_offset(kGermanOffset);
        EXPECT_NE(file_error_text(error), english);
        set_language_offset(kEnglishOffset);
    }
    const std::error_code missing = std::make_error_code(std::errc::no_such_file_or_directory);
    EXPECT_EQ(FileError(missing).fault(), FileFault::NotFound);
    EXPECT_EQ(file_error_text(FileError("in other words")), L"in other words");
    EXPECT_FALSE(error_text(PlatformError(ERROR_PATH_NOT_FOUND)).empty());
}

} // namespace
} // namespace kelvane
