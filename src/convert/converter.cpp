#include "convert/converter.h"

#include "convert/lower_case.h"
#include "convert/quoted_argument.h"
#include "settings/catalogue.h"

#include <windows.h>

namespace kelvane {
namespace {

constexpr ULONGLONG kLongestAnswer = 20000; // milliseconds; a first start after an update is slow
constexpr int kFormatListRuns = 3;

// The one program of version 7, whose first parameter names the older program that it replaces.
bool is_for_all(const std::filesystem::path& program) {
    return in_lower_case(program.stem().wstring()) == L"magick";
}

KeepWaiting not_for_ever(const KeepWaiting& keep_waiting) {
    return [&keep_waiting, end = GetTickCount64() + kLongestAnswer] {
        return GetTickCount64() < end && (!keep_waiting || keep_waiting());
    };
}

bool answers(const std::filesystem::path& program, const std::wstring& params,
             const KeepWaiting& keep_waiting) {
    if (!is_program(program)) return false;
    const ConverterFolder folder;
    const Exec run{quoted_argument(program.wstring()), params, SW_HIDE, not_for_ever(keep_waiting),
                   folder.path().wstring()};
    return in_lower_case(run.WinExec()).find(L"imagemagick") != std::wstring::npos;
}

} // namespace

bool is_program(const std::filesystem::path& file) {
    std::error_code ignored;
    return file.is_absolute() && std::filesystem::is_regular_file(file, ignored);
}

bool is_imagemagick(const std::filesystem::path& program, const KeepWaiting& keep_waiting) {
    return answers(program, L"-version", keep_waiting);
}

bool Converter::DetectConverter(const KeepWaiting& keep_waiting) {
    convert_ = read_setting(settings_, settings::kConvertProgram);
    identify_ = read_setting(settings_, settings::kIdentifyProgram);
    detected_ = is_program(convert_) && is_program(identify_) &&
                answers(convert_, L"-version", keep_waiting) &&
                answers(identify_, is_for_all(identify_) ? L"identify -version" : L"-version",
                        keep_waiting);
    return detected_;
}

bool Converter::available() const {
    return detected_ && is_program(convert_) && is_program(identify_);
}

bool Converter::does_everything() const {
    return is_for_all(convert_);
}

std::wstring Converter::convert(const std::wstring& params, const ConverterFolder& folder,
                                const KeepWaiting& keep_waiting) const {
    bool cancelled = false;
    const auto ask = [&] {
        cancelled = keep_waiting && !keep_waiting();
        return !cancelled;
    };
    const Exec run{quoted_argument(convert_.wstring()), params, SW_HIDE, ask,
                   folder.path().wstring()};
    std::wstring output = run.WinExec();
    if (cancelled) throw ConverterCancelled();
    return output;
}

std::wstring Converter::format_list(const KeepWaiting& keep_waiting) const {
    const ConverterFolder folder;
    std::wstring output;
    for (int run = 0; run < kFormatListRuns && output.size() < kShortestFormatList; ++run)
        output = convert(L"-list format", folder, keep_waiting);
    return output;
}

} // namespace kelvane
