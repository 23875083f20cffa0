#include "platform/Geometry.h"

#include "platform/Desktop.h"
#include "platform/core/Backend.h"
#include "platform/core/shapes/PathGeometry.h"

#include <cmath>
#include <numbers>

namespace platform {

namespace {

class GeometryFactory final : public ID2D1Factory {
public:
    explicit GeometryFactory(PolygonCombiner& polygonCombiner) : combine(polygonCombiner) {}

    std::unique_ptr<ID2D1Geometry> CreateRectangleGeometry(D2D1_RECT_F rect) override {
        const Vector topRight{rect.right, rect.top};
        const Vector bottomRight{rect.right, rect.bottom};
        const Vector bottomLeft{rect.left, rect.bottom};
        return MakeShape({{{rect.left, rect.top}, true, true, {Line{topRight}, Line{bottomRight}, Line{bottomLeft}}}});
    }

    std::unique_ptr<ID2D1Geometry> CreateEllipseGeometry(D2D1_ELLIPSE ellipse) override {
        const Vector centre = ellipse.point;
        const Vector radiusX{std::abs(ellipse.radiusX), 0.0};
        const Vector radiusY{0.0, std::abs(ellipse.radiusY)};
        const Vector start = centre + radiusX;
        return MakeShape({{start, true, true, {Arc{centre, radiusY, 2.0 * std::numbers::pi, start}}}});
    }

    std::unique_ptr<ID2D1PathGeometry> CreatePathGeometry() override { return std::make_unique<PathGeometry>(combine); }

    std::unique_ptr<ID2D1Geometry> CreateTransformedGeometry(const ID2D1Geometry& source,
                                                             const D2D1_MATRIX_3X2_F& transform) override {
        const std::optional<Outline>& outline = OutlineOf(source);
        return outline ? MakeShape(Mapped(*outline, Affine(transform))) : nullptr;
    }

private:
    /// The shape of one closed figure, traced clockwise on screen; null when it is not finite.
    std::unique_ptr<ID2D1Geometry> MakeShape(Outline outline) const {
        if (!IsFinite(outline)) return nullptr;
        return std::make_unique<PathGeometry>(combine, std::move(outline));
    }

    PolygonCombiner& combine;
};

} // namespace

std::unique_ptr<ID2D1Factory> CreateGeometryFactory() {
    return std::make_unique<GeometryFactory>(Desktop::Current().GetBackend().combinePolygons);
}

} // namespace platform
