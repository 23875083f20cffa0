#pragma once

#include "platform/Geometry.h"

#include <sstream>
#include <string>
#include <vector>

/// Writes what it receives as text: M and L with a point, C with three points, Z for a closed end, O for an open one.
class TextSink final : public ID2D1SimplifiedGeometrySink {
public:
    HRESULT QueryInterface() override { return E_NOTIMPL; }
    UINT AddRef() override { return 0; }
    UINT Release() override { return 0; }
    void SetFillMode(D2D1_FILL_MODE) override {}
    void SetSegmentFlags(D2D1_PATH_SEGMENT) override {}
    void BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN) override {
        Write("M", {start});
        figureStart = start;
    }
    void AddLines(const D2D1_POINT_2F* points, UINT count) override {
        for (UINT i = 0; i < count; ++i) {
            AddToArea(corners.back(), points[i]);
            Write("L", {points[i]});
        }
    }
    void AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) override {
        for (UINT i = 0; i < count; ++i) Write("C", {beziers[i].point1, beziers[i].point2, beziers[i].point3});
    }
    void EndFigure(D2D1_FIGURE_END end) override {
        Write(end == D2D1_FIGURE_END_CLOSED ? "Z" : "O", {});
        if (!corners.empty()) AddToArea(corners.back(), figureStart);
    }
    HRESULT Close() override { return S_OK; }

    std::string Text() const { return text.str(); }
    const std::vector<D2D1_POINT_2F>& Points() const { return corners; }
    /// Of figures of lines: positive where traced clockwise on screen.
    double Area() const { return area; }

private:
    void Write(const char* name, std::vector<D2D1_POINT_2F> with) {
        text << (text.tellp() > 0 ? " " : "") << name;
        for (const D2D1_POINT_2F point : with) text << ' ' << point.x << ' ' << point.y;
        corners.insert(corners.end(), with.begin(), with.end());
    }
    void AddToArea(D2D1_POINT_2F from, D2D1_POINT_2F to) {
        area += 0.5 * (static_cast<double>(from.x) * to.y - static_cast<double>(to.x) * from.y);
    }

    std::ostringstream text;
    std::vector<D2D1_POINT_2F> corners;
    D2D1_POINT_2F figureStart;
    double area = 0.0;
};
