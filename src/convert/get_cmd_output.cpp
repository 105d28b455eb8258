#include "convert/get_cmd_output.h"

#include "convert/redirected_process.h"

#include <stdexcept>

namespace kelvane {
namespace {

constexpr DWORD kBlock = 65536;     // bytes read at once
constexpr DWORD kPollInterval = 20; // milliseconds

enum class State { Something, Nothing, End };

State state_of(HANDLE pipe) {
    DWORD available = 0;
    if (!PeekNamedPipe(pipe, nullptr, 0, nullptr, &available, nullptr)) return State::End;
    return available > 0 ? State::Something : State::Nothing;
}

// False when the program is to be ended.
bool wait_for_output(HANDLE pipe, const KeepWaiting& keep_waiting) {
    if (!keep_waiting) return true; // reading itself waits
    while (keep_waiting()) {
        if (state_of(pipe) != State::Nothing) return true;
        Sleep(kPollInterval);
    }
    return false;
}

// Bytes, not text: a character of several bytes may lie across two blocks. At the end of the output
// the process is released.
std::string read_all(RedirectedProcess& process, const KeepWaiting& keep_waiting) {
    std::string bytes;
    std::string block(kBlock, '\0');
    while (bytes.size() < kLongestOutput && wait_for_output(process.output(), keep_waiting)) {
        DWORD read = 0;
        if (!ReadFile(process.output(), block.data(), kBlock, &read, nullptr)) {
            process.release();
            break;
        }
        bytes.append(block, 0, read);
    }
    return bytes;
}

std::wstring to_text(const std::string& bytes, UINT code_page) {
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    text.resize(MultiByteToWideChar(code_page, 0, bytes.data(), size, text.data(), size));
    return text;
}

} // namespace

std::wstring GetCommandOutput(const std::wstring& command_line, bool capture_std_out,
                              bool capture_std_err, bool oem_convert, unsigned short show_window,
                              const KeepWaiting& keep_waiting, const std::wstring& folder) {
    if (!capture_std_out && !capture_std_err)
        throw std::invalid_argument("Invalid procedure call or argument");
    RedirectedProcess process;
    if (!process.start(command_line, capture_std_out, capture_std_err, show_window, folder))
        return {};
    return to_text(read_all(process, keep_waiting), oem_convert ? CP_OEMCP : CP_ACP);
}

} // namespace kelvane
