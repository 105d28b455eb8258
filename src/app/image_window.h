// frmImage, the window of one document.
#pragma once

#include "app/image_document.h"
#include "app/main_services.h"
#include "app/picture_view.h"
#include "image/progress.h"
#include "win/window.h"

#include <windows.h>

#include <string>

namespace kelvane {

/// An MDI child that shows a document's picture and asks for what the document needs to open, save
/// and close. It relays the engine's events to the main window.
class frmImage : public win::Window, private ProgressObserver {
  public:
    /// Without a window until the document has its picture, by `OpenFile`, `OpenFile2` or
    /// `show_new`, which show it inside the MDI client and throw `PlatformError` when there can be
    /// no window. `main` outlives the form.
    frmImage(MainServices& main, HWND mdi_client);

    ImageDocument& document() { return document_; }
    const ImageDocument& document() const { return document_; }
    const PictureView& view() const { return view_; }

    /// Loads a picture file, reduced when it is very large. `bNew`: the file is a temporary one;
    /// the document is named "Image" and a number and the recent files stay as they are. False
    /// with a message when the file cannot be read, which names it unless it is temporary; without
    /// one for a picture without pixels.
    bool OpenFile(const std::wstring& file, bool bNew);
    /// Loads a picture file at its full size under another file's name.
    bool OpenFile2(const std::wstring& file, const std::wstring& name);
    /// Names a document that was made in memory "Image" and a number, and shows it.
    void show_new();
    /// Asks for a bitmap file and writes it; failures are shown. False even after success:
    /// `QuerySave` has always stopped the closing then.
    bool SaveFile();
    /// Brings the picture to the front and asks whether to save it. True: the document may be
    /// closed. Yes saves and gives false, so that the user closes a document that is saved.
    bool QuerySave();
    /// Copies the selected part to the clipboard, or the picture while nothing is selected.
    void CopyImage();
    /// Shows the picture as it is now, whatever its size.
    void Render();
    /// Sets the window's caption in the program's language.
    void loadLanguage();
    /// "<width> x <height>" of the picture.
    std::wstring size_text() const;
    /// "<percent> %" of the zoom.
    std::wstring zoom_text() const;

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

    bool show_menu(LPARAM place);

    MainServices& main_;
    HWND mdi_client_;
    ImageDocument document_;
    PictureView view_;
};

} // namespace kelvane
