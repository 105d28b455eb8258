// frmCombination: which two pictures are combined, and how.
#pragma once

#include "dialogs/form.h"
#include "dialogs/live_preview.h"
#include "engine/image_process.h"
#include "image/dib_section.h"

#include <array>
#include <string>
#include <vector>

namespace kelvane {

/// An open picture and the title of its document. The picture outlives the dialog.
struct CombinationSource {
    std::wstring title;
    const cDIBSection* picture;
};

/// The new picture has the size of the first one; the caller resamples the second to it. A live
/// preview shows the result.
class frmCombination : public Form {
  public:
    /// The first two sources are selected at first.
    explicit frmCombination(std::vector<CombinationSource> sources);

    // Results, valid unless `Cancelled`. Index 0 of an array is the first picture, 1 the second.

    /// Each part of the weighted sum has one offset for all channels.
    Combination combination;
    /// Positions among the sources; one picture may be combined with itself.
    std::array<int, 2> ImageSource{};
    /// Pixels.
    int NewImageWidth = 0;
    int NewImageHeight = 0;

  protected:
    void load() override;
    bool confirm() override;
    void density_changed() override;
    void on_command(int control, int notification) override;
    void draw(const DRAWITEMSTRUCT& box) override { preview_.draw(box); }

  private:
    void fill_lists();
    const cDIBSection* chosen_picture(int list) const;
    CombinationType chosen_type() const;
    void show_size();
    void show_type();
    void load_preview();
    void show_preview();
    void combine(cDIBSection& first);
    int read_numbers();

    std::vector<CombinationSource> sources_;
    LivePreview preview_; // of the first picture
    cDIBSection second_;  // the second one at the preview's size
    cImageProcessDIB engine_;
};

} // namespace kelvane
