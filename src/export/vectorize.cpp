#include "export/vectorize.h"

#include "export/contacts.h"
#include "export/outlines.h"
#include "export/runs.h"
#include "export/shape_writers.h"

#include <optional>

namespace kelvane {
namespace {

LinkedSides link_sides(const RunList& runs, ContactMap::Joining joining,
                       ProgressObserver* observer) {
    const ContactMap contacts = ContactMap::find(runs, joining, observer);
    return {runs, contacts};
}

// Full autotrace: each group of joined runs is a shape, and with wires each of its holes.
void trace_outlines(const RunList& runs, ContactMap::Joining joining, OutlineReceiver& receiver,
                    ProgressObserver* observer) {
    LinkedSides sides = link_sides(runs, joining, observer);
    const ProgressReporter progress(observer);
    progress.init(runs.rows());
    OutlineTracer tracer(runs, sides, receiver);
    for (int row = -1; tracer.trace_next();)
        if (row != tracer.row()) progress.at(row = tracer.row());
}

// Linewise: each run is a shape.
template <typename WriteRun>
void for_each_run(const RunList& runs, ProgressObserver* observer, WriteRun write_run) {
    const ProgressReporter progress(observer);
    progress.init(runs.rows());
    for (int y = 0; y < runs.rows(); ++y) {
        for (RunIndex run = runs.row_begin(y); run < runs.row_begin(y + 1); ++run)
            write_run(runs[run], y);
        progress.at(y);
    }
}

void trace(const RunList& runs, bool autotrace, ContactMap::Joining joining,
           OutlineReceiver& receiver, ProgressObserver* observer) {
    if (autotrace)
        trace_outlines(runs, joining, receiver, observer);
    else
        for_each_run(runs, observer,
                     [&](const Run& run, int y) { trace_rectangle(run, y, receiver); });
}

void write_shapes(const RunList& runs, const ExportOptions& options, ScriptText& text,
                  ExportReport& report, ProgressObserver* observer) {
    switch (options.optPoly) {
    case kShapePolygon: {
        PolygonWriter writer(text);
        trace(runs, options.exp, ContactMap::Joining::kWithoutRings, writer, observer);
        writer.write_strips();
        report.shapes = writer.polygons();
        report.bridges = writer.strips();
        break;
    }
    case kShapeWire: {
        WireWriter writer(text);
        trace(runs, options.exp, ContactMap::Joining::kAllOverlaps, writer, observer);
        report.shapes = writer.wires();
        break;
    }
    default:
        for_each_run(runs, observer, [&](const Run& run, int y) { write_rectangle(text, run, y); });
        report.shapes = runs.size();
    }
}

bool is_shape(std::int16_t kind) {
    return kind >= kShapePolygon && kind <= kShapeRectangle;
}

void write_script(const RunList& runs, SafeFile* file, ConstImageView image,
                  const ExportOptions& options, ExportReport& report, ProgressObserver* observer) {
    ScriptText text(file, options, image.width, image.height);
    write_shapes(runs, options, text, report, observer);
    text.finish();
    report.points = text.points();
    report.bytes = text.bytes();
    report.RangeOVL = text.out_of_range();
}

// Without a file name the script is only counted.
ExportReport export_script(ConstImageView image, const std::filesystem::path* file_name,
                           const ExportOptions& options, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const RunList runs = RunList::extract(image, observer);
    ExportReport report;
    report.dark_pixels = runs.dark_pixels();
    report.runs = runs.size();
    if (is_shape(options.optPoly)) {
        std::optional<SafeFile> file;
        if (file_name) file.emplace(*file_name);
        write_script(runs, file ? &*file : nullptr, image, options, report, observer);
    }
    progress.complete();
    return report;
}

} // namespace

ExportReport Vectorize(ConstImageView image, const std::filesystem::path& FileName,
                       const ExportOptions& options, ProgressObserver* observer) {
    return export_script(image, &FileName, options, observer);
}

ExportReport CountExport(ConstImageView image, const ExportOptions& options) {
    return export_script(image, nullptr, options, nullptr);
}

} // namespace kelvane
