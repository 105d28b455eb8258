// The real main window with a settings file and pictures of the test's own.
#pragma once

#include "app/commands.h"
#include "app/image_window.h"
#include "app/main_window.h"
#include "image/bitmap_file.h"
#include "settings/temporary_file.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include "support/windows/modal_script.h"
#include "texts/string_table.h"
#include "win/dialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace kelvane::test {

class AppTest : public testing::Test {
  protected:
    AppTest() { ShowWindow(main.window(), SW_SHOWNORMAL); }

    /// The path of a bitmap file with this picture in the test's folder.
    std::wstring saved(const cDIBSection& picture, const std::wstring& name = L"picture.bmp") {
        save_bitmap(picture.view(), folder / name);
        return path(name);
    }
    frmImage& opened(const cDIBSection& picture, const std::wstring& name = L"picture.bmp") {
        main.open_file(saved(picture, name));
        return *main.forms().back();
    }
    /// A document that has changed since it was opened.
    frmImage& changed(const std::wstring& name = L"picture.bmp") {
        frmImage& form = opened(flat_picture(6, 4, 10, 20, 30), name);
        choose(kCmdNegative);
        return form;
    }

    void choose(unsigned command) { SendMessageW(main.window(), WM_COMMAND, command, 0); }
    void expect_error(const std::wstring& text) { script.expect_message(L"Error ! [OK]: " + text); }
    void close(frmImage& form) { SendMessageW(form.window(), WM_CLOSE, 0, 0); }
    std::wstring path(const std::wstring& name) const { return (folder / name).wstring(); }
    std::wstring setting(const std::wstring& section, const std::wstring& key) const {
        return SettingsFile(folder / "kelvane.ini").ReadIniValue(section, key);
    }
    std::wstring status(int field) const { return main.status_bar().text(field); }
    static std::wstring caption(const frmImage& form) { return win::window_text(form.window()); }
    static const cDIBSection& picture_of(const frmImage& form) { return form.document().picture(); }

    /// How many of the program's temporary files there are.
    static long long temporary_files() {
        const std::filesystem::directory_iterator all(TempDir());
        return std::count_if(begin(all), end(all), [](const auto& entry) {
            return entry.path().filename().wstring().starts_with(L"VBI");
        });
    }

    TemporaryFolder folder;
    mfrmMain main{SettingsFile(folder / "kelvane.ini")};
    ModalScript script;
};

} // namespace kelvane::test
