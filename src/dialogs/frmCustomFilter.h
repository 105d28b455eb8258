// frmCustomFilter: a convolution kernel of up to 7 x 7 coefficients, typed in.
#pragma once

#include "dialogs/form.h"
#include "dialogs/kernel_grid.h"
#include "engine/image_process.h"

#include <bitset>

namespace kelvane {

class frmCustomFilter : public Form {
  public:
    /// The engine that gets the filter, as its custom one. When it has a custom filter already,
    /// the grid starts with that; otherwise with the kernel that changes nothing.
    explicit frmCustomFilter(cImageProcessDIB& engine);

    cImageProcessDIB& ImageProcess;
    /// True when the dialog was left without OK; the engine is as it was then.

  protected:
    void load() override;
    bool confirm() override;
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
    void hand_over(const FilterKernel& kernel);
    INT_PTR cell_brush(HDC context, int cell) const;

    /// What the cells hold; text that is no number counts as 0.
    KernelGrid grid_;
    /// Cells shown as having no part in the filter.
    std::bitset<KernelGrid::kCells> grey_;
    /// The grid's only cell that Tab reaches: the one that had the focus last.
    int tab_stop_ = KernelGrid::kCentre;
};

} // namespace kelvane
