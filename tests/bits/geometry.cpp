#include "bits.h"
#include "zor/scalar/ZOR_complex.h"
#include "zor/scalar/ZOR_math1.h"
#include "zor/scalar/ZOR_sline.h"

using namespace ZOR_zorbase;

ZOR_BITS(geometry) {
  const std::vector<double> x = bits::noise(4000, 5), y = bits::noise(4000, 6);
  std::vector<double> segments, ellipses, quotients, polar, lines;
  for (std::size_t i = 0; i + 3 < x.size(); i += 4) {
    const TPointDouble p{x[i], y[i]}, q{x[i + 1], y[i + 1]}, r{x[i + 2], y[i + 2]}, s{x[i + 3], y[i + 3]};
    segments.push_back(ZOR_math1::DistanceToSegment(p, q, r));
    segments.push_back(ZOR_math1::SegmentsIntersect(p, q, r, s) ? 1.0 : 0.0);
    segments.push_back(ZOR_math1::CcwTriangle(p, q, r));
    TPointDouble nearest;
    ellipses.push_back(ZOR_math1::DistFromEllipse(p, q.x, q.y, r.x, r.y, nearest));
    ellipses.push_back(nearest.x);
    ellipses.push_back(nearest.y);

    using namespace ZOR_complex;
    const TComplex z = CpxDiv(CpxMult(Cpx(p.x, p.y), Cpx(q.x, q.y)), Cpx(r.x, r.y));
    const TComplexPolar w = ConvertRectToPolar(z);
    quotients.push_back(z.re);
    quotients.push_back(z.im);
    polar.push_back(w.r);
    polar.push_back(w.phi);

    ZOR_sline::TSLine line, other;
    line.LineFrom2Points(p.x, p.y, q.x, q.y);
    other.LineFrom2Points(r.x, r.y, s.x, s.y);
    double at_x = 0.0, at_y = 0.0, x2 = 0.0, y2 = 0.0;
    line.InterSection(&other, at_x, at_y);
    lines.insert(lines.end(), {line.Direction(), line.Distance(r.x, r.y), line.AngleBetweenLines(&other), at_x, at_y});
    if (line.ClipBox(-1000, -1000, 1000, 1000, at_x, at_y, x2, y2)) lines.insert(lines.end(), {at_x, at_y, x2, y2});
  }
  bits::print("segments", segments);
  bits::print("ellipses", ellipses);
  bits::print("complex quotients", quotients);
  bits::print("polar form", polar);
  bits::print("lines", lines);
}
