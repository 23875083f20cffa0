#include "engine/HitRegion.h"
#include "engine/SimplifiedGeometrySink.h"
#include "tests/support/EngineStage.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>

namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<HIT> Cast(const HitRegion& region, DOUBLE2 start, DOUBLE2 vector, int side = 0, int size = 200) {
    std::vector<HIT> hits(static_cast<std::size_t>(size));
    hits.resize(static_cast<std::size_t>(region.Raycast(start, vector, hits.data(), size, side)));
    return hits;
}

std::vector<double> Lambdas(const HitRegion& region, DOUBLE2 start, DOUBLE2 vector, int side = 0, int size = 200) {
    std::vector<double> lambdas;
    for (const HIT& hit : Cast(region, start, vector, side, size)) lambdas.push_back(hit.lambda);
    return lambdas;
}

class HitRegionRaycast : public EngineStage {
protected:
    HitRegionRaycast() { box.CreateRect(0, 0, 100, 100); }
    HitRegion box;
};

TEST_F(HitRegionRaycast, ReportsCrossingsNearestFirst) {
    EXPECT_THAT(Lambdas(box, {50, -10}, {0, 40}), ElementsAre(0.25));
    EXPECT_THAT(Lambdas(box, {50, -10}, {0, 200}), ElementsAre(DoubleNear(0.05, 1e-9), DoubleNear(0.55, 1e-9)));
    EXPECT_THAT(Lambdas(box, {50, 110}, {0, -200}), ElementsAre(DoubleNear(0.05, 1e-9), DoubleNear(0.55, 1e-9)));
    EXPECT_THAT(Lambdas(box, {50, -10}, {0, 200}, 0, 1), ElementsAre(DoubleNear(0.05, 1e-9)));
    EXPECT_THAT(Lambdas(box, {50, -10}, {0, 200}, 0, 0), IsEmpty());
    EXPECT_EQ(Cast(box, {50, -10}, {0, 40})[0].point, DOUBLE2(50, 0));
    EXPECT_EQ(box.Raycast({50, -10}, {0, 40}, nullptr, -1, 0), 0);
}

TEST_F(HitRegionRaycast, CountsTheStartOfTheRayAndNotItsEnd) {
    EXPECT_THAT(Lambdas(box, {50, -10}, {0, 10}), IsEmpty());
    EXPECT_THAT(Lambdas(box, {50, 0}, {0, -10}), ElementsAre(0.0));
    EXPECT_THAT(Lambdas(box, {50, 0}, {0, 0}), IsEmpty());
    EXPECT_THAT(Lambdas(box, {10, 0}, {50, 0}), IsEmpty()) << "along the edge";
    EXPECT_THAT(Lambdas(box, {10, 5e-9}, {50, -1e-8}), IsEmpty()) << "as good as along it";
    EXPECT_THAT(Lambdas(box, {100, -10}, {0, 20}), ElementsAre(0.5))
        << "a corner, met by one edge, the other being parallel";
}

TEST_F(HitRegionRaycast, TheSideFilterTellsEnteringFromLeaving) {
    EXPECT_THAT(Lambdas(box, {50, -10}, {0, 200}, -1), ElementsAre(DoubleNear(0.05, 1e-9)));
    EXPECT_THAT(Lambdas(box, {50, -10}, {0, 200}, 1), ElementsAre(DoubleNear(0.55, 1e-9)));
    EXPECT_THAT(Lambdas(box, {50, 110}, {0, -200}, -1), ElementsAre(DoubleNear(0.05, 1e-9)));
    EXPECT_EQ(Cast(box, {50, -10}, {0, 200}, -1)[0].normal, DOUBLE2(0, 1)) << "into the solid";

    HitRegion circle;
    circle.CreateEllipse({0, 0}, 10, 10);
    const std::vector<HIT> hits = Cast(circle, {-20, 0.5}, {40, 0}, -1);
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_NEAR(hits[0].point.x, -10, 0.1);
    EXPECT_NEAR(hits[0].normal.x, 1, 0.1);
}

TEST_F(HitRegionRaycast, WorksInWorldCoordinates) {
    box.SetPos({200, 0});
    EXPECT_EQ(Cast(box, {250, -10}, {0, 40})[0].point, DOUBLE2(250, 0));
    EXPECT_THAT(Lambdas(box, {250, -10}, {0, 40}), ElementsAre(0.25));

    box.SetTransformMatrix(MATRIX3X2::CreateScalingMatrix(2));
    const std::vector<HIT> hits = Cast(box, {50, 210}, {0, -40});
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].lambda, 0.25);
    EXPECT_EQ(hits[0].point, DOUBLE2(50, 200));
    EXPECT_EQ(hits[0].normal, DOUBLE2(0, -2)) << "as long as the transform makes it";
}

/// The rules of a ray cast, followed step by step over the whole outline: what every cast must answer, to the last bit.
class PlainPass {
public:
    PlainPass(const std::vector<DOUBLE2>& ofSegments, const std::vector<DOUBLE2>& ofCurves)
        : segments(ofSegments), curves(ofCurves) {}

    std::vector<HIT> Cast(DOUBLE2 start, DOUBLE2 vector, double maxLambda, double side) const {
        std::vector<HIT> hits;
        CastAtSegments(start, vector, maxLambda, side, hits);
        CastAtCurves(start, vector, maxLambda, side, hits);
        std::stable_sort(hits.begin(), hits.end(), [](const HIT& a, const HIT& b) { return a.lambda < b.lambda; });
        return hits;
    }

private:
    static constexpr std::size_t mostHits = 100;

    void CastAtSegments(DOUBLE2 start, DOUBLE2 vector, double maxLambda, double side, std::vector<HIT>& hits) const {
        const DOUBLE2 end = start + vector;
        for (std::size_t i = 0; i < segments.size() && hits.size() < mostHits; i += 2) {
            const DOUBLE2 p = segments[i];
            const DOUBLE2 q = segments[i + 1];
            if (std::max(p.x, q.x) < std::min(start.x, end.x) || std::min(p.x, q.x) > std::max(start.x, end.x))
                continue;
            if (std::max(p.y, q.y) < std::min(start.y, end.y) || std::min(p.y, q.y) > std::max(start.y, end.y))
                continue;
            const DOUBLE2 normal = (q - p).Orthogonal();
            if (side != 0.0 && !(normal.DotProduct(vector) * side < 0.0)) continue;
            double lambda1 = 0.0;
            double lambda2 = 0.0;
            if (!IntersectLines(start, end, p, q, lambda1, lambda2, 1e-6)) continue;
            if (!(0.0 <= lambda1 && lambda1 < maxLambda && 0.0 <= lambda2 && lambda2 <= 1.0)) continue;
            hits.push_back({lambda1, start + vector * lambda1, normal.Normalized(0.001)});
        }
    }

    void CastAtCurves(DOUBLE2 start, DOUBLE2 vector, double maxLambda, double side, std::vector<HIT>& hits) const {
        const double squaredLength = vector.DotProduct(vector);
        const DOUBLE2 orthogonal = vector.Orthogonal();
        for (std::size_t i = 0; i < curves.size() && hits.size() < mostHits; i += 3) {
            const DOUBLE2 a0 = curves[i] - start;
            const DOUBLE2 a1 = curves[i + 1] - start;
            const DOUBLE2 a2 = curves[i + 2] - start;
            const double d0 = orthogonal.DotProduct(a0);
            const double d1 = orthogonal.DotProduct(a1);
            const double d2 = orthogonal.DotProduct(a2);
            if (!(d0 > 0 || d1 > 0 || d2 > 0) || !(d0 < 0 || d1 < 0 || d2 < 0)) continue;
            double roots[2];
            const int count = Solve(2 * d1 - d0 - d2, 2 * d0 - 2 * d1, -d0, roots);
            for (int k = 0; k < count && hits.size() < mostHits; ++k) {
                const double t = roots[k];
                if (!(0.0 <= t && t <= 1.0)) continue;
                const DOUBLE2 tangent = 2.0 * (a1 - a0) + t * (2.0 * (a0 - a1) + 2.0 * (a2 - a1));
                const DOUBLE2 normal = tangent.Orthogonal();
                if (side != 0.0 && !(normal.DotProduct(vector) * side < 0.0)) continue;
                const DOUBLE2 r = Lerp(Lerp(a0, a1, t), Lerp(a1, a2, t), t);
                const double lambda = r.DotProduct(vector) / squaredLength;
                if (!(0.0 <= lambda && lambda < maxLambda)) continue;
                hits.push_back({lambda, start + r, normal.Normalized(0.001)});
            }
        }
    }

    static int Solve(double a, double b, double c, double roots[2]) {
        if (std::abs(a) < 1e-6) {
            roots[0] = -c / b;
            return 1;
        }
        const double d = b * b - 4.0 * a * c;
        if (d < 0.0) return 0;
        if (std::abs(d) < 1e-6) {
            roots[0] = -b / (2.0 * a);
            return 1;
        }
        roots[0] = (-b + std::sqrt(d)) / (2.0 * a);
        roots[1] = (-b - std::sqrt(d)) / (2.0 * a);
        return std::isnan(d) ? 0 : 2;
    }

    const std::vector<DOUBLE2>& segments;
    const std::vector<DOUBLE2>& curves;
};

using Random = std::mt19937;

double Uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}
int Whole(Random& random, int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

/// A kind of outline and the rays to cast at it.
struct Scene {
    const char* name;
    std::function<void(Random&, ID2D1GeometrySink&)> draw;
    std::function<std::pair<DOUBLE2, DOUBLE2>(Random&, const std::vector<DOUBLE2>& curves)> aim;
    int atLeast; ///< crossings in all, so that the comparison means something
};

/// Figures of `count` segments from `add`, each from a fresh start.
void DrawFigures(Random& random, ID2D1GeometrySink& sink, int figures, int count, double range,
                 const std::function<void(DOUBLE2&)>& add) {
    for (int figure = 0; figure < figures; ++figure) {
        DOUBLE2 at(Uniform(random, -range, range), Uniform(random, -range, range));
        sink.BeginFigure(at.ToPoint2F(), D2D1_FIGURE_BEGIN_FILLED);
        for (int i = 0; i < count; ++i) add(at);
        sink.EndFigure(figure % 2 == 0 ? D2D1_FIGURE_END_CLOSED : D2D1_FIGURE_END_OPEN);
    }
}

void DrawStairs(Random& random, ID2D1GeometrySink& sink) {
    for (int figure = 0; figure < 30; ++figure) {
        DOUBLE2 at(Whole(random, -8, 8), Whole(random, -8, 8));
        sink.BeginFigure(at.ToPoint2F(), D2D1_FIGURE_BEGIN_FILLED);
        for (int i = 0; i < 10; ++i) {
            (i % 2 == 0 ? at.x : at.y) += Whole(random, -4, 4);
            sink.AddLine(at.ToPoint2F());
        }
        sink.EndFigure(D2D1_FIGURE_END_CLOSED);
    }
}

void DrawCurves(Random& random, ID2D1GeometrySink& sink) {
    DrawFigures(random, sink, 40, 4, 100, [&](DOUBLE2& at) {
        const auto next = [&] { return (at += {Uniform(random, -30, 30), Uniform(random, -30, 30)}).ToPoint2F(); };
        if (Whole(random, 0, 2) == 0) {
            sink.AddLine(next());
        } else {
            const auto control1 = next();
            const auto control2 = next();
            sink.AddBezier({control1, control2, next()});
        }
    });
}

std::pair<DOUBLE2, DOUBLE2> AimAnywhere(Random& random, double range, double length) {
    return {{Uniform(random, -range, range), Uniform(random, -range, range)},
            {Uniform(random, -length, length), Uniform(random, -length, length)}};
}

/// The solver takes a small discriminant for 0, and answers with the place where the curve runs along the ray, however
/// far beside it that is.
std::pair<DOUBLE2, DOUBLE2> AimBesideCurve(Random& random, const std::vector<DOUBLE2>& curves) {
    const auto curve = 3 * static_cast<std::size_t>(Whole(random, 0, static_cast<int>(curves.size() / 3) - 1));
    const double angle = Uniform(random, 0, 6.28);
    const DOUBLE2 along(std::cos(angle), std::sin(angle));
    const DOUBLE2 first = curves[curve + 1] - curves[curve];
    const DOUBLE2 second = curves[curve + 2] - curves[curve + 1];
    const double t = first.DetProduct(along) / (first - second).DetProduct(along);
    const DOUBLE2 point =
        Lerp(Lerp(curves[curve], curves[curve + 1], t), Lerp(curves[curve + 1], curves[curve + 2], t), t);
    const DOUBLE2 beside = point + Uniform(random, -20, 20) * along.Orthogonal();
    const double length = std::pow(10.0, Uniform(random, -7, -4));
    return {beside - 0.5 * length * along, length * along};
}

const Scene scenes[] = {
    {"stairs on whole numbers, rays through their corners", DrawStairs,
     [](Random& random, const auto&) {
         const DOUBLE2 start(Whole(random, -12, 12), Whole(random, -12, 12));
         DOUBLE2 vector(Whole(random, -6, 6), Whole(random, -6, 6));
         const int axis = Whole(random, 0, 2);
         if (axis < 2) (axis == 0 ? vector.x : vector.y) = 0.0;
         return std::pair(start, vector);
     },
     5000},
    {"thousands of scattered lines",
     [](Random& random, ID2D1GeometrySink& sink) {
         DrawFigures(random, sink, 1500, 3, 1000, [&](DOUBLE2& at) {
             at += {Uniform(random, -20, 20), Uniform(random, -20, 20)};
             sink.AddLine(at.ToPoint2F());
         });
     },
     [](Random& random, const auto&) { return AimAnywhere(random, 1050, 50); }, 500},
    {"far more than a hundred crossings",
     [](Random& random, ID2D1GeometrySink& sink) {
         DrawFigures(random, sink, 300, 2, 100, [&](DOUBLE2& at) {
             at += {Uniform(random, -150, 150), Uniform(random, -150, 150)};
             sink.AddLine(at.ToPoint2F());
         });
         DrawCurves(random, sink);
     },
     [](Random& random, const auto&) { return AimAnywhere(random, 150, 400); }, 25000},
    {"curves", DrawCurves, [](Random& random, const auto&) { return AimAnywhere(random, 150, 60); }, 1000},
    {"rays too short for the solver, beside the point of a curve that runs along them", DrawCurves, AimBesideCurve,
     100},
    {"shapes far from the origin",
     [](Random& random, ID2D1GeometrySink& sink) {
         sink.BeginFigure({1e6F, 1e6F}, D2D1_FIGURE_BEGIN_FILLED);
         for (int i = 0; i < 200; ++i) {
             const auto near = [&] { return static_cast<float>(1e6 + Uniform(random, -20, 20)); };
             sink.AddQuadraticBezier({{near(), near()}, {near(), near()}});
             sink.AddLine({near(), near()});
         }
     },
     [](Random& random, const auto&) {
         auto [start, vector] = AimAnywhere(random, 25, 5);
         return std::pair(start + DOUBLE2(1e6, 1e6), vector);
     },
     1000},
};

TEST_F(HitRegionRaycast, AnswersAsAPassOverTheWholeOutlineDoes) {
    for (const Scene& scene : scenes) {
        SCOPED_TRACE(scene.name);
        std::size_t crossings = 0;
        for (unsigned seed = 1; seed <= 2; ++seed) {
            Random random(seed);
            auto pathPtr = Factory().CreatePathGeometry();
            ID2D1GeometrySink* sinkPtr = nullptr;
            pathPtr->Open(&sinkPtr);
            scene.draw(random, *sinkPtr);
            ASSERT_EQ(sinkPtr->Close(), S_OK);

            constexpr auto option = D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES;
            std::vector<DOUBLE2> segments;
            std::vector<DOUBLE2> curves;
            SimplifiedGeometrySink sink(nullptr, &segments, &curves, 5.0);
            pathPtr->Simplify(option, 5.0F, sink);
            const PlainPass plainPass(segments, curves);
            HitOutline outline;
            ASSERT_TRUE(outline.Record(*pathPtr, option, 5.0, nullptr));

            for (int i = 0; i < 2000; ++i) {
                const auto [start, vector] = scene.aim(random, curves);
                const double side = Whole(random, -1, 1);
                const std::vector<HIT> expected = plainPass.Cast(start, vector, 1.0, side);
                HIT hits[150];
                const int count = outline.Raycast(start, vector, hits, 150, 1.0, side);
                ASSERT_EQ(count, static_cast<int>(expected.size())) << start << " + " << vector << ", side " << side;
                for (std::size_t k = 0; k < expected.size(); ++k)
                    ASSERT_EQ(std::memcmp(&hits[k], &expected[k], sizeof(HIT)), 0)
                        << start << " + " << vector << ", hit " << k;
                crossings += expected.size();
            }
        }
        EXPECT_GT(crossings, static_cast<std::size_t>(scene.atLeast));
    }
}

TEST_F(HitRegionRaycast, RaysThatAreNotFiniteHitNothing) {
    HitRegion circle;
    circle.CreateEllipse({50, 50}, 50, 50);
    for (const double bad : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        for (const HitRegion* regionPtr : {&box, &circle}) {
            EXPECT_THAT(Lambdas(*regionPtr, {bad, 50}, {10, 0}), IsEmpty());
            EXPECT_THAT(Lambdas(*regionPtr, {50, -10}, {0, bad}), IsEmpty());
            EXPECT_THAT(Lambdas(*regionPtr, {bad, bad}, {bad, bad}), IsEmpty());
        }
    }
}

TEST_F(HitRegionRaycast, ShapesOfAnySizeCanBeCastAt) {
    for (const double size : {1e-42, 1e-30, 1e-3, 1e18, 3e38}) {
        SCOPED_TRACE(size);
        DOUBLE2 corners[] = {{-size, -size}, {size, -size}, {size, size}, {0, size / 2}, {-size, size}};
        HitRegion polygon;
        polygon.CreatePolygon(corners, 5, true);
        const bool isSeen = size > 1e-4; // smaller ones are parallel to everything
        EXPECT_EQ(Lambdas(polygon, {size / 2, -1.5 * size}, {0, size}).size(), isSeen ? 1U : 0U);
        HitRegion circle;
        circle.CreateEllipse({0, 0}, size, size);
        EXPECT_LE(Lambdas(circle, {size / 2, -1.5 * size}, {0, size}).size(), 2U);
    }
    DOUBLE2 samePoint[] = {{7, 7}, {7, 7}, {7, 7}};
    box.CreatePolygon(samePoint, 3, true);
    EXPECT_THAT(Lambdas(box, {0, 7}, {20, 0}), IsEmpty());
}

TEST_F(HitRegionRaycast, TransformedRegionsAnswerAsTheirOutlineDoes) {
    Random random(7);
    for (int round = 0; round < 50; ++round) {
        std::vector<DOUBLE2> points(40);
        for (DOUBLE2& point : points) point = {Whole(random, -50, 50) * 1.0, Whole(random, -50, 50) * 1.0};
        std::vector<DOUBLE2> segments;
        for (std::size_t i = 0; i < points.size(); ++i) {
            segments.push_back(points[i]);
            segments.push_back(points[(i + 1) % points.size()]);
        }
        HitRegion region;
        region.CreatePolygon(points.data(), static_cast<int>(points.size()), true);
        const MATRIX3X2 mat = MATRIX3X2::CreateRotationMatrix(Uniform(random, 0, 6)) *
                              MATRIX3X2::CreateScalingMatrix(Uniform(random, 0.5, 3), Uniform(random, -3, -0.5)) *
                              MATRIX3X2::CreateTranslationMatrix(Uniform(random, -99, 99), Uniform(random, -99, 99));
        region.SetTransformMatrix(mat);
        const MATRIX3X2 inverse = mat.Inverse();
        for (int i = 0; i < 100; ++i) {
            const auto [start, vector] = AimAnywhere(random, 150, 80);
            std::vector<HIT> expected =
                PlainPass(segments, {}).Cast(inverse.TransformPoint(start), inverse.TransformVector(vector), 1.0, 0.0);
            const std::vector<HIT> hits = Cast(region, start, vector);
            ASSERT_EQ(hits.size(), expected.size());
            for (std::size_t k = 0; k < hits.size(); ++k) {
                EXPECT_EQ(hits[k].lambda, expected[k].lambda);
                EXPECT_EQ(hits[k].point, mat.TransformPoint(expected[k].point));
                EXPECT_EQ(hits[k].normal, mat.TransformVector(expected[k].normal));
            }
        }
    }
}

} // namespace
