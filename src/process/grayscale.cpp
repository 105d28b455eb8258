#include "process/grayscale.h"

#include "process/column_strips.h"
#include "process/point_rows.h"

namespace kelvane {

void GrayScale(ImageView image, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto grey = point_rows().grey;
    progress.init(3L * image.width - 3);
    walk_columns(0, image.width, image.height, progress,
                 [&](int x, int count, int y) { grey(image.pixel(x, y), count); });
    progress.complete();
}

} // namespace kelvane
