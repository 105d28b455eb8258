// The program's texts, looked up in its resources by the numbers in res/ids.h.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

// The platform's macro would rename ours in some files and not in others.
#undef LoadString

namespace kelvane {

/// Added to a text's German number: 0 for German, 10000 for English.
inline constexpr int kGermanOffset = 0;
inline constexpr int kEnglishOffset = 10000;

/// A number that the string table does not have.
class MissingTextError : public std::runtime_error {
  public:
    explicit MissingTextError(int number);
};

/// The program's language: English until it is set. One for the whole program. With an offset that
/// is neither of the two above every text is missing.
int language_offset();
void set_language_offset(int offset);

/// The text with the German number `id` in the program's language. Throws `MissingTextError`.
std::wstring LoadString(int id);

/// The same with %1, %2 ... replaced by `fields`.
std::wstring LoadString(int id, std::initializer_list<std::wstring_view> fields);

/// The text at exactly this number, whatever the language: the layer names.
std::wstring load_fixed_string(int number);

} // namespace kelvane
