// frmCustomFilter: a convolution kernel of up to 7 x 7 coefficients, typed in.
#pragma once

#include "dialogs/form.h"
#include "dialogs/kernel_grid.h"
#include "dialogs/live_preview.h"
#include "engine/image_process.h"

#include <bitset>

namespace kelvane {

class frmCustomFilter : public Form {
  public:
    /// `engine` receives the filter as its custom filter. The grid starts with the custom filter
    /// that the engine has, if any, else with the kernel that changes nothing. `picture` is what
    /// the preview shows.
    frmCustomFilter(cImageProcessDIB& engine, const cDIBSection& picture);

    cImageProcessDIB& ImageProcess;

  protected:
    void load() override;
    bool confirm() override;
    void density_changed() override;
    void draw(const DRAWITEMSTRUCT& box) override { preview_.draw(box); }
    void on_command(int id, int notification) override;
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;

  private:
    void prepare_fields() const;
    void show_start();
    void show_grid(const KernelGrid& grid);
    void cell_entered(int cell);
    void move_focus(WPARAM key) const;
    void cell_changed(int cell);
    void base_chosen();
    void calculate_weight() const;
    int weight() const;
    void show_preview();
    INT_PTR cell_brush(HDC context, int cell) const;

    LivePreview preview_;
    /// Fields are being filled: the preview follows when all are.
    bool filling_ = false;
    /// What the cells hold; text that is no number counts as 0.
    KernelGrid grid_;
    /// Cells drawn grey: their coefficient is 0.
    std::bitset<KernelGrid::kCells> grey_;
    /// The only cell that is a tab stop: the one that had the focus last.
    int tab_stop_ = KernelGrid::kCentre;
};

} // namespace kelvane
