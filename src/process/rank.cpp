#include "process/rank.h"

#include "process/column_strips.h"
#include "process/convolution.h"
#include "process/filter_rows.h"
#include "process/strips.h"

namespace kelvane {

void rank_filter(ConstImageView from, TargetRows to, Rank rank, ProgressObserver* observer,
                 const PartDone& done) {
    if (rank == Rank::Mean) {
        // A ninth of the sum of nine samples: the blur's kernel.
        convolve(from, to, predefined_kernel(kBlur), observer, done);
        return;
    }
    const ProgressReporter progress(observer);
    const auto extreme = rank == Rank::Minimum ? filter_rows().minimum : filter_rows().maximum;
    walk_interior(from, 1, strip_pixels(from.width, from.height), to, progress, done,
                  [&](int byte, int count, int y) {
                      extreme(from.row(y) + byte, from.row_step, to.row(y) + byte, count);
                  });
}

} // namespace kelvane
