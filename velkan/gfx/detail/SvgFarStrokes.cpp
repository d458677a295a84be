#include "velkan/gfx/detail/SvgFarStrokes.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <nanosvg.h>

namespace Velkan {
namespace Detail {

namespace {

const double kPi = 3.14159265358979323846;

struct Point {
    double x, y;
};

Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
Point operator*(Point a, double k) { return {a.x * k, a.y * k}; }
double Length(Point a) { return std::hypot(a.x, a.y); }

// The stored form of a point, so that lengths are measured on what the
// rasteriser will really see.
Point Stored(Point a) {
    return {static_cast<double>(static_cast<float>(a.x)), static_cast<double>(static_cast<float>(a.y))};
}

class PathShortener {
public:
    PathShortener(Point centre, double radius, double period) : m_centre(centre), m_radius(radius), m_period(period) {}

    // The new points in the path's cubic form, or false to leave the path.
    bool Shorten(const NSVGpath& path, bool mayStartOutside, std::vector<float>& result);

private:
    bool Inside(Point p) const { return Length(p - m_centre) <= m_radius; }
    Point Outward(Point p) const { return (p - m_centre) * (1.0 / Length(p - m_centre)); }
    // Turning around the centre along a straight piece that stays outside.
    double Sweep(Point a, Point b) const {
        const Point u = a - m_centre, v = b - m_centre;
        return std::atan2(u.x * v.y - u.y * v.x, u.x * v.x + u.y * v.y);
    }

    void Start(Point p);
    void LineTo(Point p);
    void AddCubic(const float* controls);
    void EnterAt(Point entry);
    void LeaveAt(Point exit) {
        m_outside = true;
        m_exit = exit;
        m_runLength = 0.0;
        m_runSweep = 0.0;
    }
    void RunOver(Point from, Point to) {
        m_runLength += Length(to - from);
        m_runSweep += Sweep(from, to);
    }
    bool Straight(const float* p) const;
    bool Step(Point a, Point b, const float* controls);

    Point m_centre;
    double m_radius;
    double m_period;
    std::vector<float> m_points;
    Point m_current = {};
    bool m_started = false;
    bool m_outside = false;
    bool m_leading = false;  // outside since the path's start
    Point m_exit = {};
    double m_runLength = 0.0;
    double m_runSweep = 0.0;
};

void PathShortener::Start(Point p) {
    const Point stored = Stored(p);
    m_points.push_back(static_cast<float>(stored.x));
    m_points.push_back(static_cast<float>(stored.y));
    m_current = stored;
    m_started = true;
}

// A line in the parser's own form: the controls at a third and two thirds.
void PathShortener::LineTo(Point p) {
    const Point to = Stored(p), d = to - m_current;
    const Point c1 = m_current + d * (1.0 / 3.0), c2 = to - d * (1.0 / 3.0);
    for (double value : {c1.x, c1.y, c2.x, c2.y, to.x, to.y}) m_points.push_back(static_cast<float>(value));
    m_current = to;
}

void PathShortener::AddCubic(const float* controls) {
    m_points.insert(m_points.end(), controls + 2, controls + 8);
    m_current = {controls[6], controls[7]};
}

bool PathShortener::Straight(const float* p) const {
    const Point a{p[0], p[1]}, b{p[6], p[7]}, d = b - a;
    const double length2 = d.x * d.x + d.y * d.y;
    for (int i = 2; i <= 4; i += 2) {
        const Point c = Point{p[i], p[i + 1]} - a;
        if (length2 == 0.0) {
            if (c.x != 0.0 || c.y != 0.0) return false;
            continue;
        }
        const double across = std::fabs(c.x * d.y - c.y * d.x) / std::sqrt(length2);
        const double along = (c.x * d.x + c.y * d.y) / length2;
        if (across > 1e-5 * std::sqrt(length2) + 1e-6 || along < -1e-6 || along > 1.0 + 1e-6) return false;
    }
    return true;
}

// Closes the stretch outside: from the exit, out and back along the radius
// by whatever length makes the total equal modulo the dash pattern, then
// around the circle by the same turning, in steps short enough that each
// chord stays outside the image.
void PathShortener::EnterAt(Point entry) {
    m_outside = false;
    if (m_leading) {
        m_leading = false;
        double spare = std::fmod(m_runLength, m_period);
        if (spare > 0.0) {
            Start(entry + Outward(entry) * spare);
            LineTo(entry);
        } else {
            Start(entry);
        }
        return;
    }
    std::vector<Point> route;
    const int steps = static_cast<int>(std::ceil(std::fabs(m_runSweep) / (kPi / 4.0))) + 1;
    const Point from = m_exit - m_centre;
    const double start = std::atan2(from.y, from.x);
    for (int i = 1; i < steps; ++i) {
        const double angle = start + m_runSweep * i / steps;
        route.push_back(Stored(m_centre + Point{std::cos(angle), std::sin(angle)} * m_radius));
    }
    route.push_back(Stored(entry));
    double routeLength = 0.0;
    Point previous = m_current;
    for (Point p : route) {
        routeLength += Length(p - previous);
        previous = p;
    }
    double spare = std::fmod(m_runLength - routeLength, m_period);
    if (spare < 0.0) spare += m_period;
    if (spare > 0.0) {
        const Point exit = m_current;
        LineTo(exit + Outward(exit) * (spare / 2.0));
        LineTo(exit);
    }
    for (Point p : route) LineTo(p);
}

// One piece of the path, from a to b; controls is its cubic.
bool PathShortener::Step(Point a, Point b, const float* controls) {
    const bool aInside = !m_outside, bInside = Inside(b);
    bool controlsInside = true;
    for (int i = 2; i <= 4; i += 2) controlsInside = controlsInside && Inside({controls[i], controls[i + 1]});
    if (!controlsInside && !Straight(controls)) return false;
    if (aInside && bInside) {
        AddCubic(controls);
        return true;
    }
    // Where the line crosses the circle: a + t (b - a), t in [0, 1].
    const Point d = b - a, f = a - m_centre;
    const double qa = d.x * d.x + d.y * d.y, qb = 2.0 * (f.x * d.x + f.y * d.y),
                 qc = f.x * f.x + f.y * f.y - m_radius * m_radius;
    const double discriminant = qb * qb - 4.0 * qa * qc;
    double tIn = 2.0, tOut = 2.0;
    if (qa > 0.0 && discriminant >= 0.0) {
        const double root = std::sqrt(discriminant);
        tIn = (-qb - root) / (2.0 * qa);
        tOut = (-qb + root) / (2.0 * qa);
    }
    if (aInside) {
        const Point exit = a + d * std::max(0.0, std::min(1.0, tOut));
        LineTo(exit);
        LeaveAt(m_current);
        RunOver(exit, b);
        return true;
    }
    if (tIn > 1.0 || tOut < 0.0) {  // the whole piece stays outside
        RunOver(a, b);
        return true;
    }
    const Point entry = a + d * std::max(0.0, tIn);
    RunOver(a, entry);
    EnterAt(entry);
    if (bInside) {
        LineTo(b);
        return true;
    }
    const Point exit = a + d * std::min(1.0, tOut);
    LineTo(exit);
    LeaveAt(m_current);
    RunOver(exit, b);
    return true;
}

bool PathShortener::Shorten(const NSVGpath& path, bool mayStartOutside, std::vector<float>& result) {
    const Point first{path.pts[0], path.pts[1]};
    if (Inside(first)) {
        Start(first);
    } else {
        if (!mayStartOutside) return false;
        m_outside = m_leading = true;
        m_runLength = 0.0;
    }
    Point a = first;
    for (int i = 0; i + 3 < path.npts; i += 3) {
        const float* controls = &path.pts[i * 2];
        const Point b{controls[6], controls[7]};
        if (!Step(a, b, controls)) return false;
        a = b;
    }
    // A closed path's closing line is stroked too, and can run outside.
    if (path.closed && (a.x != first.x || a.y != first.y)) {
        const float closing[8] = {static_cast<float>(a.x), static_cast<float>(a.y),
                                  static_cast<float>(a.x + (first.x - a.x) / 3.0),
                                  static_cast<float>(a.y + (first.y - a.y) / 3.0),
                                  static_cast<float>(first.x - (first.x - a.x) / 3.0),
                                  static_cast<float>(first.y - (first.y - a.y) / 3.0),
                                  static_cast<float>(first.x), static_cast<float>(first.y)};
        if (m_outside || !Inside(a) || !Inside(first)) {
            if (!Step(a, first, closing)) return false;
        }
    }
    // An open path that ends outside simply ends where it left, and one
    // that never comes near the image keeps only its start.
    if (!m_started) Start(first);
    result.swap(m_points);
    return true;
}

bool ReachesOutside(const NSVGpath& path, Point centre, double radius) {
    for (int i = 0; i < path.npts; ++i) {
        if (Length(Point{path.pts[i * 2], path.pts[i * 2 + 1]} - centre) > radius) return true;
    }
    return false;
}

void ReplacePoints(NSVGpath& path, const std::vector<float>& points) {
    float* copy = static_cast<float*>(std::malloc(points.size() * sizeof(float)));
    if (copy == nullptr) return;
    std::memcpy(copy, points.data(), points.size() * sizeof(float));
    std::free(path.pts);
    path.pts = copy;
    path.npts = static_cast<int>(points.size() / 2);
    path.bounds[0] = path.bounds[2] = copy[0];
    path.bounds[1] = path.bounds[3] = copy[1];
    for (int i = 1; i < path.npts; ++i) {
        path.bounds[0] = std::fmin(path.bounds[0], copy[i * 2]);
        path.bounds[1] = std::fmin(path.bounds[1], copy[i * 2 + 1]);
        path.bounds[2] = std::fmax(path.bounds[2], copy[i * 2]);
        path.bounds[3] = std::fmax(path.bounds[3], copy[i * 2 + 1]);
    }
}

}  // namespace

void ShortenFarDashedStrokes(NSVGimage& image) {
    for (NSVGshape* shape = image.shapes; shape != nullptr; shape = shape->next) {
        if (shape->strokeDashCount <= 0 || shape->stroke.type == NSVG_PAINT_NONE) continue;
        double period = 0.0;
        for (int i = 0; i < shape->strokeDashCount; ++i) period += shape->strokeDashArray[i];
        if (shape->strokeDashCount & 1) period *= 2.0;
        if (!(period > 0.0)) continue;
        // Joins and caps reach at most the miter length from the line.
        const double margin = shape->strokeWidth * std::fmax(1.0f, shape->miterLimit) + 2.0;
        const Point centre{image.width / 2.0, image.height / 2.0};
        const double radius = 2.0 * std::hypot(image.width / 2.0 + margin, image.height / 2.0 + margin);
        const bool filled = shape->fill.type != NSVG_PAINT_NONE;
        for (NSVGpath* path = shape->paths; path != nullptr; path = path->next) {
            std::vector<float> points;
            PathShortener shortener(centre, radius, period);
            if (path->npts >= 4 && ReachesOutside(*path, centre, radius) &&
                shortener.Shorten(*path, !path->closed && !filled, points)) {
                ReplacePoints(*path, points);
            }
        }
    }
}

}  // namespace Detail
}  // namespace Velkan
