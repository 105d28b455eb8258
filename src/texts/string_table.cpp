#include "texts/string_table.h"

namespace kelvane {
namespace {

int current_offset = kEnglishOffset;

// Behind its last character a text has a zero, which is no field's number.
bool is_field(const std::wstring& text, std::size_t at, std::size_t field_count) {
    return text[at] == L'%' && static_cast<std::size_t>(text[at + 1] - L'1') < field_count;
}

} // namespace

MissingTextError::MissingTextError(int number)
    : std::runtime_error("text " + std::to_string(number) + " is missing") {}

int language_offset() {
    return current_offset;
}

void set_language_offset(int offset) {
    current_offset = offset;
}

std::wstring load_fixed_string(int number) {
    // A buffer length of 0 asks for a pointer to the text itself, which has no final zero.
    const wchar_t* text = nullptr;
    const int length = number < 0 || number > 0xFFFF
                           ? 0
                           : LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(number),
                                         reinterpret_cast<wchar_t*>(&text), 0);
    if (length <= 0) throw MissingTextError(number);
    return {text, static_cast<std::size_t>(length)};
}

std::wstring LoadString(int id) {
    return load_fixed_string(id + current_offset);
}

std::wstring LoadString(int id, std::initializer_list<std::wstring_view> fields) {
    const std::wstring text = LoadString(id);
    std::wstring filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (is_field(text, at, fields.size()))
            filled += fields.begin()[text[++at] - L'1'];
        else
            filled += text[at];
    }
    return filled;
}

} // namespace kelvane
