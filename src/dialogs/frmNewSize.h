// frmNewSize: the size that a picture is resampled to.
#pragma once

#include "dialogs/form.h"
#include "settings/settings_file.h"

namespace kelvane {

/// Starts with the stored size of the last use, else with the picture's own. While the picture's
/// ratio is to be kept, width and height follow each other, up to the largest size of that ratio.
class frmNewSize : public Form {
  public:
    /// Two sides of this length, in pixels, are the largest square that a picture buffer holds;
    /// no side may be longer, so that every pair fits.
    static constexpr int kLongestSide = 26754;

    /// `width` and `height`: the picture's size in pixels, at least 1.
    frmNewSize(const SettingsFile& settings, int width, int height);

    /// Pixels, 1 to `kLongestSide`; valid unless `Cancelled`.
    int NewWidth = 0;
    int NewHeight = 0;

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;

  private:
    void show_size(int width, int height);
    struct Side {
        int field;
        int own; // the picture's, in pixels
    };
    void follow(const Side& typed, const Side& other);

    const SettingsFile& settings_;
    int width_;
    int height_;
    bool following_ = false; // true while one field sets the other
};

} // namespace kelvane
