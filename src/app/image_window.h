// frmImage, the window of one document.
#pragma once

#include "app/document_services.h"
#include "app/image_document.h"
#include "image/progress.h"
#include "win/window.h"

#include <windows.h>

#include <array>
#include <string>

namespace kelvane {

/// An MDI child that shows a document's picture, one pixel to one pixel, and asks for what the
/// document needs to open, save and close. It relays the engine's events to the main window.
class frmImage : public win::Window, private ProgressObserver {
  public:
    /// Makes no window yet: `OpenFile`, `OpenFile2` and `show_new` do so when the document has its
    /// picture, and throw `PlatformError` when the window cannot be made. `main` outlives the form.
    explicit frmImage(DocumentServices& main);

    ImageDocument& document() { return document_; }
    const ImageDocument& document() const { return document_; }

    /// Loads a picture file, reduced when it is very large. `bNew`: the file is a temporary one;
    /// the document is named "Image" and a number and the recent files stay as they are. False
    /// when the file cannot be read, with a message that names the file unless it is temporary;
    /// false without a message for a picture without pixels.
    bool OpenFile(const std::wstring& file, bool bNew);
    /// Loads a picture file at its full size under another file's name.
    bool OpenFile2(const std::wstring& file, const std::wstring& name);
    /// Names a document that was made in memory "Image" and a number, and shows it.
    void show_new();
    /// Asks for a bitmap file and writes it; failures are shown. False even after success, so that
    /// `QuerySave` stops the closing: users rely on that.
    bool SaveFile();
    /// Brings the picture to the front and asks whether to save it. True: the document may be
    /// closed. Yes saves and gives false, so that the user closes a document that is saved.
    bool QuerySave();
    void CopyImage();
    /// Shows the picture as it is now, whatever its size.
    void Render();
    /// Sets the window's caption in the program's language.
    void loadLanguage();
    /// Writes the document's title and "<width> x <height>" of its picture to the status line.
    void show_status() const;

  protected:
    LRESULT on_message(UINT message, WPARAM w, LPARAM l) override;
    LRESULT default_procedure(UINT message, WPARAM w, LPARAM l) override;
    void destroyed() override { main_.form_closed(*this); }

  private:
    struct OpenAs {
        std::wstring name;        // empty: "Image" and a number
        std::wstring status_name; // after "Opening "
        ImageDocument::SizeLimit limit;
        bool recent;
    };
    bool open(const std::wstring& file, const OpenAs& how);
    void show_as(const std::wstring& name);
    void create();
    void fit_window();
    LONG title_width() const;
    std::wstring caption() const;
    void bring_to_front();

    void InitProgress(long lMax) override;
    void Progress(long lPosition) override;
    void Complete(double lTimeMs) override;

    // Scrolling; index 0 is the horizontal bar, 1 the vertical one.
    void layout();
    void scroll(int bar, UINT request);
    void scroll_to(int bar, int position);
    void wheel(int bar, int delta);
    bool key(WPARAM key);
    int position(int bar) const;
    SIZE view_size() const;
    struct Bars {
        bool across;
        bool down;
    };
    Bars bars_within(SIZE view) const;
    SIZE size_with_bars(SIZE view) const;

    void paint();

    DocumentServices& main_;
    ImageDocument document_;
    std::array<int, 2> wheel_rest_{}; // wheel movement that has not scrolled a pixel yet
    bool laying_out_ = false;
};

} // namespace kelvane
