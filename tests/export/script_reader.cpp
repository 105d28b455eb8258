#include "export/script_reader.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace kelvane::test {
namespace {

int in_steps(double coordinate, double size) {
    const double steps = coordinate / size * kPixel;
    if (std::abs(steps - std::round(steps)) > 1e-6)
        throw std::runtime_error("no grid coordinate: " + std::to_string(coordinate));
    return static_cast<int>(std::lround(steps));
}

// "(x y)" again and again, then ";".
Path points_of(const std::string& command, double size) {
    std::istringstream in(command.substr(command.find('(')));
    in >> std::noskipws;
    Path path;
    double x = 0, y = 0;
    char open = 0, blank = 0, close = 0;
    while (in >> open && open == '(') {
        if (!(in >> x >> blank >> y >> close) || blank != ' ' || close != ')')
            throw std::runtime_error("no point in: " + command);
        path.push_back({in_steps(x, size), in_steps(y, size)});
    }
    if (open != ';' || in.peek() != EOF)
        throw std::runtime_error("a command that does not end: " + command);
    return path;
}

Path closed(Path path) {
    if (path.size() < 4 || path.front() != path.back())
        throw std::runtime_error("an outline that is not closed");
    path.pop_back();
    return path;
}

void add_wire(const Path& wire, Path& chain) {
    if (wire.size() != 2 || (!chain.empty() && chain.back() != wire[0]))
        throw std::runtime_error("a wire that does not continue its chain");
    if (chain.empty()) chain.push_back(wire[0]);
    chain.push_back(wire[1]);
}

} // namespace

Script parse_script(const std::string& text, double size) {
    Script script;
    Path chain;
    std::string command;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.ends_with('\r') || in.eof()) throw std::runtime_error("a line without CR LF");
        line.pop_back();
        command += line;
        // A polygon goes on behind a backslash, and a strip's command behind its name.
        if (line.ends_with('\\')) {
            command.pop_back();
        } else if (command == "Polygon 0 ") {
            continue;
        } else {
            if (command.starts_with("Polygon "))
                script.polygons.push_back(closed(points_of(command, size)));
            else if (command.starts_with("Wire ") || command.starts_with("wire "))
                add_wire(points_of(command, size), chain);
            else if (command.starts_with("Rect "))
                script.rectangles.push_back(points_of(command, size));
            else if (command == ";")
                script.chains.push_back(closed(std::exchange(chain, {})));
            command.clear();
        }
    }
    if (!command.empty() || !chain.empty()) throw std::runtime_error("the script breaks off");
    return script;
}

Cells dark_cells(ConstImageView image) {
    Cells cells(image.width, image.height);
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            cells.at(x, y) = image.pixel(x, y)[0] < 129;
    if (cells.get(0, 0) == 0)
        for (int x = 1; cells.get(x, 0) != 0; ++x)
            cells.at(x, 0) = 0;
    return cells;
}

std::string Cells::drawing() const {
    std::string text;
    for (int y = height_ - 1; y >= 0; --y) {
        for (int x = 0; x < width_; ++x)
            text += get(x, y) == 0 ? '.' : static_cast<char>('0' + get(x, y));
        text += '\n';
    }
    return text;
}

namespace {

constexpr int kHalf = kPixel / 2;

// Paths in half pixels from here on. Adds the winding number to each half-pixel cell surrounded.
void add_winding(const Path& path, Cells& half_cells) {
    for (std::size_t i = 0; i < path.size(); ++i) {
        const Point& from = path[i];
        const Point& to = path[(i + 1) % path.size()];
        // An edge going down has the area on its right, seen on the screen.
        const int step = to.y < from.y ? 1 : -1;
        for (int y = std::min(from.y, to.y); y < std::max(from.y, to.y); ++y)
            for (int x = from.x; x < half_cells.width(); ++x)
                half_cells.at(x, y) += step;
    }
}

std::string outline_fault(const Path& path) {
    std::map<Point, int> visits;
    std::set<std::pair<Point, Point>> pieces;
    std::set<Point> straight;
    const std::size_t count = path.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Point a = path[i];
        const Point b = path[(i + 1) % count];
        const Point c = path[(i + 2) % count];
        std::ostringstream where;
        where << " at (" << a.x / 2. << ' ' << a.y / 2. << ')';
        if (a == b) return "equal points in a row" + where.str();
        if (a.x != b.x && a.y != b.y) return "an edge askew" + where.str();
        if ((a.x == b.x) == (b.x == c.x)) return "collinear edges" + where.str();
        const Point step{(b.x > a.x) - (b.x < a.x), (b.y > a.y) - (b.y < a.y)};
        for (Point p = a; p != b;) {
            const Point q{p.x + step.x, p.y + step.y};
            if (!pieces.insert(std::minmax(p, q)).second)
                return "an outline along itself" + where.str();
            ++visits[p];
            if (p != a) straight.insert(p);
            p = q;
        }
    }
    for (const auto& [point, times] : visits)
        if (times > 1 && (point.x % 2 != 0 || point.y % 2 != 0 || straight.contains(point)))
            return "an outline that meets itself off a pixel corner or crosses itself";
    return {};
}

} // namespace

std::string coverage_fault(const std::vector<Path>& paths, const Cells& dark) {
    Cells drawn(dark.width() * 2, dark.height() * 2);
    for (Path path : paths) {
        for (Point& point : path) {
            if (point.x % kHalf != 0 || point.y % kHalf != 0) return "a point off the half pixels";
            point = {point.x / kHalf, point.y / kHalf};
        }
        if (const std::string fault = outline_fault(path); !fault.empty()) return fault;
        add_winding(path, drawn);
    }
    Cells doubled(drawn.width(), drawn.height());
    for (int y = 0; y < doubled.height(); ++y)
        for (int x = 0; x < doubled.width(); ++x)
            doubled.at(x, y) = dark.get(x / 2, y / 2);
    if (drawn == doubled) return {};
    return "drawn:\n" + drawn.drawing() + "instead of:\n" + dark.drawing();
}

} // namespace kelvane::test
