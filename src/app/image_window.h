// frmImage, the window of one document.
#pragma once

#include "app/document_services.h"
#include "app/image_document.h"
#include "app/picture_view.h"
#include "image/progress.h"
#include "win/window.h"

#include <windows.h>

#include <string>

namespace kelvane {

/// What becomes of the message when a file cannot be opened; it is left out when another file with
/// the same picture follows.
enum class OnFailure { Tell, Ignore };

/// An MDI child that shows a document's picture and asks for what the document needs to open, save
/// and close. It relays the engine's events to the main window.
class frmImage : public win::Window, private ProgressObserver {
  public:
    /// Makes no window yet: `OpenFile`, `OpenFile2` and `show_new` do so when the document has its
    /// picture, and throw `PlatformError` when the window cannot be made. `main` outlives the form.
    explicit frmImage(DocumentServices& main);

    ImageDocument& document() { return document_; }
    const ImageDocument& document() const { return document_; }
    const PictureView& view() const { return view_; }

    /// Loads a picture file, reduced when it is very large. `bNew`: the file is a temporary one;
    /// the document is named "Image" and a number and the recent files stay as they are. False
    /// when the file cannot be read, with a message (see `OnFailure`) that names the file unless it
    /// is temporary; false without a message for a picture without pixels.
    bool OpenFile(const std::wstring& file, bool bNew, OnFailure on_failure = OnFailure::Tell);
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
    /// Copies the selected part to the clipboard, or the picture while nothing is selected.
    void CopyImage();
    /// Shows the picture as it is now, whatever its size.
    void Render();
    /// Sets the window's caption in the program's language.
    void loadLanguage();
    /// Writes the document's title, "<width> x <height>" of its picture and "<percent> %" of its
    /// zoom to the status line. For the active form, whose fields these are.
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
        OnFailure on_failure = OnFailure::Tell;
    };
    bool open(const std::wstring& file, const OpenAs& how);
    void show_as(const std::wstring& name);
    void create();
    void fit_window();
    LONG title_width() const;
    std::wstring caption() const;
    void bring_to_front();
    bool is_active() const;
    void activate() const;

    void InitProgress(long lMax) override;
    void Progress(long lPosition) override;
    void Complete(double lTimeMs) override;

    bool show_menu(LPARAM place);

    DocumentServices& main_;
    ImageDocument document_;
    PictureView view_;
};

} // namespace kelvane
