#include "tools/level_check/OutlineCheck.h"

#include "engine/SVGLoader.h"
#include "engine/String.h"
#include "platform/Geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string_view>

namespace {

/// Collects the figures of a shape; curves arrive as their end points.
class FigureSink final : public ID2D1SimplifiedGeometrySink {
public:
    HRESULT QueryInterface() override { return -1; }
    UINT AddRef() override { return 0; }
    UINT Release() override { return 0; }
    void SetFillMode(D2D1_FILL_MODE) override {}
    void SetSegmentFlags(D2D1_PATH_SEGMENT) override {}
    void BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN) override { figures.push_back({ToPoint(start)}); }
    void AddLines(const D2D1_POINT_2F* points, UINT count) override {
        for (UINT i = 0; i < count; ++i) figures.back().push_back(ToPoint(points[i]));
    }
    void AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) override {
        for (UINT i = 0; i < count; ++i) {
            curves.push_back(figures.back().back());
            figures.back().push_back(ToPoint(beziers[i].point3));
        }
    }
    void EndFigure(D2D1_FIGURE_END end) override {
        if (end == D2D1_FIGURE_END_OPEN) open.push_back(figures.back().front());
        if (figures.back().size() > 1 && figures.back().front() == figures.back().back()) figures.back().pop_back();
    }
    HRESULT Close() override { return 0; }

    std::vector<Outline::Figure> figures;
    std::vector<DOUBLE2> curves; ///< where each curve begins
    std::vector<DOUBLE2> open;   ///< where each open figure begins

private:
    static DOUBLE2 ToPoint(D2D1_POINT_2F point) { return DOUBLE2(point.x, point.y); }
};

RECT2 Around(DOUBLE2 point) { return RECT2(point.x, point.y, point.x + 1.0, point.y + 1.0); }

double Cross(DOUBLE2 a, DOUBLE2 b) { return a.Orthogonal().DotProduct(b); }

/// Twice the area; positive for a figure that runs clockwise on screen.
double Turn(const Outline::Figure& figure) {
    double sum = 0.0;
    for (std::size_t i = 0; i < figure.size(); ++i) sum += Cross(figure[i], figure[(i + 1) % figure.size()]);
    return sum;
}

bool IsInside(DOUBLE2 point, const Outline::Figure& figure) {
    bool inside = false;
    for (std::size_t i = 0; i < figure.size(); ++i) {
        const DOUBLE2 a = figure[i];
        const DOUBLE2 b = figure[(i + 1) % figure.size()];
        if ((a.y > point.y) == (b.y > point.y)) continue;
        if (point.x < a.x + (point.y - a.y) * (b.x - a.x) / (b.y - a.y)) inside = !inside;
    }
    return inside;
}

struct Edge {
    DOUBLE2 from;
    DOUBLE2 to;
    std::size_t figure;
    std::size_t index;
};

/// The sign tells on which side of the edge the point lies; 0 on its line.
double Side(const Edge& edge, DOUBLE2 point) { return Cross(edge.to - edge.from, point - edge.from); }

/// Whether the edges share more than a common corner.
bool Meet(const Edge& a, const Edge& b) {
    const double a1 = Side(b, a.from);
    const double a2 = Side(b, a.to);
    const double b1 = Side(a, b.from);
    const double b2 = Side(a, b.to);
    if (a1 * a2 < 0.0 && b1 * b2 < 0.0) return true;
    if (a1 != 0.0 || a2 != 0.0) return false;
    // on one line: do they overlap there?
    const DOUBLE2 along = a.to - a.from;
    const double length = along.DotProduct(along);
    const double from = (b.from - a.from).DotProduct(along) / length;
    const double to = (b.to - a.from).DotProduct(along) / length;
    return std::max(0.0, std::min(from, to)) < std::min(1.0, std::max(from, to));
}

int CountOf(const std::string& text, std::string_view word) {
    int count = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++count;
    return count;
}

} // namespace

Outline::Outline(const std::string& path, Findings& findings) {
    std::ifstream stream(path, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    CheckText(text, findings);

    ID2D1Geometry* loadedPtr = nullptr;
    if (!SVGLoader().LoadGeometryFromFile(String(path.c_str()), &loadedPtr)) {
        findings.Add("the outline cannot be read", {});
        return;
    }
    const std::unique_ptr<ID2D1Geometry> geometryPtr(loadedPtr);
    FigureSink sink;
    geometryPtr->Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES, 0.25F, sink);
    for (const DOUBLE2 point : sink.curves) findings.Add("an edge of the outline is curved", Around(point));
    for (const DOUBLE2 point : sink.open) findings.Add("a figure of the outline is not closed", Around(point));
    for (const Figure& figure : sink.figures) {
        if (figure.size() < 3) {
            findings.Add("a figure of the outline has less than three corners", Around(figure.front()));
            continue;
        }
        for (const DOUBLE2 corner : figure) {
            if (corner.x != std::round(corner.x) || corner.y != std::round(corner.y)) {
                findings.Add("a corner of the outline lies between pixels", Around(corner));
            }
        }
        figures.push_back(figure);
    }
}

/// The loader takes the first path and the first transform and ignores the rest of the file.
void Outline::CheckText(const std::string& text, Findings& findings) const {
    const auto warn = [&](const std::string& what) { findings.Add("the outline's file has " + what, {}); };
    for (const char* shape :
         {"<rect", "<circle", "<ellipse", "<polygon", "<polyline", "<line", "<use", "<text", "<image"}) {
        if (CountOf(text, shape) > 0) warn(std::string("a ") + shape + "> element, which the game ignores");
    }
    if (CountOf(text, "<path") > 1) warn("more than one path; the game reads the first");
    const int transforms = CountOf(text, "transform=") + CountOf(text, "transform =");
    if (transforms > 1) warn("more than one transform; the game applies the first alone");
    const std::size_t pathAt = text.find("<path");
    const std::size_t commentAt = text.rfind("<!--", pathAt);
    if (pathAt != std::string::npos && commentAt != std::string::npos && text.find("-->", commentAt) > pathAt) {
        warn("its first path inside a comment, which the game reads all the same");
    }
    const std::size_t transformAt = std::min(text.find("transform="), text.find("transform ="));
    if (transformAt != std::string::npos) {
        const std::size_t pathEnd = pathAt == std::string::npos ? text.size() : text.find('>', pathAt);
        if (transformAt > pathEnd) warn("a transform behind the path, which the game applies to the path");
        const std::size_t open = text.find('"', transformAt);
        const std::size_t close = text.find('"', open + 1);
        if (open != std::string::npos && close != std::string::npos &&
            CountOf(text.substr(open, close - open), "(") > 1) {
            warn("a list of transforms; the game applies its first");
        }
    }
    if (CountOf(text, "fill-rule") > 0) warn("a fill rule; the game always fills by the even-odd rule");
}

void Outline::CheckShape(Findings& findings) const {
    std::vector<Edge> edges;
    for (std::size_t f = 0; f < figures.size(); ++f) {
        const Figure& figure = figures[f];
        for (std::size_t i = 0; i < figure.size(); ++i)
            edges.push_back({figure[i], figure[(i + 1) % figure.size()], f, i});

        std::size_t depth = 0;
        for (std::size_t other = 0; other < figures.size(); ++other) {
            if (other != f && IsInside(figure[0], figures[other])) ++depth;
        }
        const bool solid = depth % 2 == 0;
        if ((Turn(figure) > 0.0) != solid) {
            findings.Add(solid ? "a solid figure is traced counter-clockwise on screen"
                               : "a hole is traced clockwise on screen",
                         Around(figure[0]));
        }
    }
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (edges[i].from == edges[i].to) {
            findings.Add("an edge of the outline has no length", Around(edges[i].from));
            continue;
        }
        for (std::size_t j = i + 1; j < edges.size(); ++j) {
            if (!(edges[j].from == edges[j].to) && Meet(edges[i], edges[j])) {
                findings.Add("the outline crosses or touches itself along an edge", Around(edges[j].from));
            }
        }
    }
}

std::vector<std::uint8_t> Outline::Fill(int width, int height) const {
    std::vector<std::uint8_t> solid(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::vector<double> crossings;
    for (int y = 0; y < height; ++y) {
        crossings.clear();
        for (const Figure& figure : figures) {
            for (std::size_t i = 0; i < figure.size(); ++i) {
                const DOUBLE2 a = figure[i];
                const DOUBLE2 b = figure[(i + 1) % figure.size()];
                const double middle = y + 0.5;
                if ((a.y > middle) != (b.y > middle)) {
                    crossings.push_back(a.x + (middle - a.y) * (b.x - a.x) / (b.y - a.y));
                }
            }
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const int from = std::clamp(static_cast<int>(std::ceil(crossings[i] - 0.5)), 0, width);
            const int to = std::clamp(static_cast<int>(std::ceil(crossings[i + 1] - 0.5)), 0, width);
            const std::size_t row = static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
            std::fill(solid.begin() + static_cast<std::ptrdiff_t>(row + static_cast<std::size_t>(from)),
                      solid.begin() + static_cast<std::ptrdiff_t>(row + static_cast<std::size_t>(std::max(from, to))),
                      1);
        }
    }
    return solid;
}
