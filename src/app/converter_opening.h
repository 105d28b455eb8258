// Opening files by the converter, ImageMagick, which reads formats that the program does not.
#pragma once

#include "app/main_services.h"
#include "app/status_bar.h"
#include "convert/conversion.h"
#include "convert/converter.h"
#include "dialogs/open_in_shell.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelvane {

/// The converter's programs are looked for when a file is first opened this way: detecting them at
/// the program's start would delay every start. While they run, the windows are painted, commands
/// are refused, and Esc ends the programs. Failures are shown.
class ConverterOpening {
  public:
    /// Both arguments outlive the object. `status_bar` shows how many previews are made.
    ConverterOpening(MainServices& main, StatusBar& status_bar);

    /// Asks for a file, offering the formats that the converter reads, and opens it.
    void ask_and_open();
    /// Opens a file in a new document under its own name. When it holds several images, the user
    /// chooses one.
    void OpenByConverter(const std::wstring& file);

  private:
    using Formats = std::vector<PictureFormat>;

    void report_failures(const std::function<void()>& opening);
    std::optional<Formats> require_formats();
    bool require_converter();
    bool detect_converter();
    std::optional<Formats> read_formats();
    std::optional<std::wstring> ask_file(const Formats& formats);
    void warn_of_several_images(const std::wstring& file, const Formats& formats);
    void convert_and_open(const std::wstring& file, const Formats& formats);
    std::unique_ptr<Conversion> converted(const std::wstring& file);
    std::optional<std::size_t> choose_image(const Conversion& conversion);
    void open_image(const Conversion& conversion, const std::wstring& name);
    KeepWaiting until_escape();
    OpenInShell open_in_shell();

    MainServices& main_;
    StatusBar& status_bar_;
    Converter converter_;
};

} // namespace kelvane
