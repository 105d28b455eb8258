#include "export/shape_writers.h"

namespace kelvane {

void PolygonWriter::begin_outline() {
    at_first_ = true;
    ++polygons_;
    text_.shape_prefix();
}

void PolygonWriter::add_vertices(std::span<const OutlineVertex> vertices) {
    for (const OutlineVertex& vertex : vertices)
        add_vertex(vertex);
}

void PolygonWriter::add_vertex(const OutlineVertex& vertex) {
    ScriptPoint point{vertex.x, vertex.y};
    if (at_first_) {
        first_ = point;
        at_first_ = false;
        text_.point(point);
        return;
    }
    if (bridging_) strips_.back().left = vertex.x;
    if (vertex.bridge) strips_.push_back({vertex.x, vertex.x, vertex.y});
    point.lowered = bridging_ || vertex.bridge;
    bridging_ = vertex.bridge;
    text_.append(ScriptText::kContinued);
    text_.point(point);
}

void PolygonWriter::end_outline() {
    text_.last_point(first_);
}

void PolygonWriter::write_strips() {
    for (const Strip& strip : strips_)
        write_strip(strip);
}

void PolygonWriter::write_strip(const Strip& strip) {
    text_.shape_prefix();
    if (text_.breaks_strip_command()) text_.append(ScriptText::kLineEnd);
    const ScriptPoint first{strip.right, strip.y, true};
    text_.point(first);
    for (const ScriptPoint& next :
         {ScriptPoint{strip.right, strip.y}, {strip.left, strip.y}, {strip.left, strip.y, true}}) {
        text_.append(ScriptText::kContinued);
        text_.point(next);
    }
    text_.last_point(first);
}

void WireWriter::begin_outline() {
    at_first_ = true;
    edges_ = 0;
    text_.shape_prefix();
}

void WireWriter::add_vertices(std::span<const OutlineVertex> vertices) {
    for (const OutlineVertex& vertex : vertices) {
        if (at_first_)
            first_ = last_ = {vertex.x, vertex.y};
        else
            wire_to({vertex.x, vertex.y});
        at_first_ = false;
    }
}

void WireWriter::wire_to(const ScriptPoint& to) {
    // Only the first wire of a chain has the layer's prefix, with the name where there is one.
    if (edges_ > 0) text_.append("wire 0 ");
    text_.point(last_);
    text_.last_point(to);
    last_ = to;
    ++edges_;
}

void WireWriter::end_outline() {
    wire_to(first_);
    text_.line(";");
    wires_ += edges_;
}

void write_rectangle(ScriptText& text, const Run& run, int y) {
    text.shape_prefix();
    text.point({run.begin, y});
    text.last_point({run.end, y + 1});
}

} // namespace kelvane
