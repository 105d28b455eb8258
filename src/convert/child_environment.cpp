#include "convert/child_environment.h"

#include "win/names.h"

#include <windows.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace kelvane {
namespace {

constexpr const wchar_t* kTemporary[] = {L"TMP", L"TEMP", L"MAGICK_TEMPORARY_PATH"};
// Folders with configuration files, separated by semicolons.
constexpr const wchar_t* kConfiguration = L"MAGICK_CONFIGURE_PATH";

bool names(std::wstring_view variable, const wchar_t* name) {
    return win::compare_names(variable.substr(0, variable.find(L'=')), name) == 0;
}

bool tells_temporary(std::wstring_view variable) {
    return std::ranges::any_of(kTemporary,
                               [&](const wchar_t* name) { return names(variable, name); });
}

std::vector<std::wstring> own_variables() {
    std::vector<std::wstring> variables;
    wchar_t* const block = GetEnvironmentStringsW();
    for (const wchar_t* at = block; at != nullptr && *at != L'\0';
         at += variables.back().size() + 1)
        variables.emplace_back(at);
    if (block != nullptr) FreeEnvironmentStringsW(block);
    return variables;
}

// The folder in which the child runs comes first. It is "." because ImageMagick 7.0 reads its
// variables in the 8-bit code page, which the full path may not fit.
void configure_from_current_folder(std::vector<std::wstring>& variables) {
    std::wstring value = L".";
    for (const std::wstring& variable : variables)
        if (names(variable, kConfiguration))
            value += L';' + variable.substr(variable.find(L'=') + 1);
    std::erase_if(variables, [](const auto& each) { return names(each, kConfiguration); });
    variables.push_back(kConfiguration + (L'=' + value));
}

} // namespace

std::wstring environment_for(const std::wstring& folder) {
    std::vector<std::wstring> variables = own_variables();
    std::erase_if(variables, tells_temporary);
    for (const wchar_t* name : kTemporary)
        variables.push_back(name + (L'=' + folder));
    configure_from_current_folder(variables);
    // The platform asks for this order.
    std::ranges::sort(variables, [](const std::wstring& a, const std::wstring& b) {
        return win::compare_names(a, b) < 0;
    });
    std::wstring block;
    for (const std::wstring& variable : variables)
        block += variable + L'\0';
    return block + L'\0';
}

} // namespace kelvane
