// frmCombination: which two pictures are combined, and how.
#pragma once

#include "dialogs/live_preview.h"
#include "engine/image_process.h"
#include "image/dib_section.h"
#include "win/dialog.h"

#include <array>
#include <string>
#include <vector>

namespace kelvane {

/// An open picture and the name it goes by. The picture outlives the dialog.
struct CombinationSource {
    std::wstring title;
    const cDIBSection* picture;
};

/// The new picture has the size of the first one; the caller resamples the second to it. A live
/// preview shows what comes of the two.
class frmCombination : public win::Dialog {
  public:
    /// The first two sources are offered to start with.
    explicit frmCombination(std::vector<CombinationSource> sources);

    bool Cancelled = true;

    // The rest is valid unless `Cancelled`. Arrays go by picture: 0 first, 1 second.

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
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;

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
