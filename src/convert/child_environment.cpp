#include "convert/child_environment.h"

#include <windows.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace kelvane {
namespace {

constexpr const wchar_t* kTemporary[] = {L"TMP", L"TEMP", L"MAGICK_TEMPORARY_PATH"};

int compare(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE);
}

bool tells_temporary(std::wstring_view variable) {
    const std::wstring_view name = variable.substr(0, variable.find(L'='));
    return std::ranges::any_of(
        kTemporary, [&](const wchar_t* each) { return compare(each, name) == CSTR_EQUAL; });
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

} // namespace

std::wstring environment_with_temporary(const std::wstring& folder) {
    std::vector<std::wstring> variables = own_variables();
    std::erase_if(variables, tells_temporary);
    for (const wchar_t* name : kTemporary)
        variables.push_back(name + (L'=' + folder));
    // The platform asks for this order.
    std::ranges::sort(variables, [](const std::wstring& a, const std::wstring& b) {
        return compare(a, b) == CSTR_LESS_THAN;
    });
    std::wstring block;
    for (const std::wstring& variable : variables)
        block += variable + L'\0';
    return block + L'\0';
}

} // namespace kelvane
