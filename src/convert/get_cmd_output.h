// MGetCmdOutput: runs a console program and returns what it prints.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace kelvane {

/// Asked about fifty times a second while a program prints nothing; may let the windows paint.
/// False ends the program and all it has started.
using KeepWaiting = std::function<bool()>;

/// In bytes. The longest answer, ImageMagick's on a file of a thousand images, has 200 KB.
inline constexpr std::size_t kLongestOutput = 4u << 20;

/// Runs `command_line` and returns all that it prints on the captured streams. Both streams are
/// captured into one text, in the order in which the program writes. The program reads an empty
/// standard input.
///
/// `oem_convert`: the output is in the OEM code page, as console programs write it, else in the
/// ANSI one. `show_window`: the platform's show state (SW_HIDE ...) for the program's window.
///
/// `folder`: where the program runs, with `environment_for(folder)`; empty: where this program
/// does, with its environment.
///
/// Blocks until the program and everything it started have closed the streams; processes that still
/// run then are not ended. When `keep_waiting` answers false or the output exceeds
/// `kLongestOutput`, the program is ended with all that it has started, and the output so far is
/// returned. Empty when the program cannot be started. Throws `std::invalid_argument` when neither
/// stream is captured.
std::wstring GetCommandOutput(const std::wstring& command_line, bool capture_std_out,
                              bool capture_std_err, bool oem_convert, unsigned short show_window,
                              const KeepWaiting& keep_waiting = {},
                              const std::wstring& folder = {});

} // namespace kelvane
