// frmMultiPic: which image of a file that holds several is to be opened.
#pragma once

#include "dialogs/form.h"
#include "win/gdi.h"

#include <windows.h>

#include <commctrl.h>

#include <filesystem>
#include <vector>

namespace kelvane {

/// One image of the file.
struct SubImage {
    /// A picture file of 200 x 200 pixels or less. When it cannot be read a crossed box is shown.
    std::filesystem::path preview;
    /// The image's own size in pixels, shown below it; 0 when it is not known.
    int width = 0;
    int height = 0;
};

/// A list of previews. A preview is read when it first comes into view, so that the number of
/// images does not matter. The files must exist while the dialog is shown.
class frmMultiPic : public Form {
  public:
    explicit frmMultiPic(std::vector<SubImage> images);

    /// Position of the chosen image, from 0; the one to start with when set before. Valid unless
    /// `Cancelled`.
    int Index = 0;

  protected:
    void load() override;
    bool confirm() override;
    void density_changed() override { make_previews(); }
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;

  private:
    using ImageList = Owned<HIMAGELIST, ImageList_Destroy>;

    void make_previews();
    void fill_list() const;
    int preview_of(int image);
    int add_preview(const std::filesystem::path& file);
    int selected() const;
    void show_selection() const;
    void draw_item(HDC context, int image);
    LRESULT custom_draw(const NMCUSTOMDRAW& stage);

    std::vector<SubImage> images_;
    int edge_ = 0; // of a preview on the screen, in pixels
    ImageList previews_;
    std::vector<int> preview_index_; // by image: index in `previews_`, -1 while not read
};

} // namespace kelvane
