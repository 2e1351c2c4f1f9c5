// An independent transverse Mercator for checking the Gauss-Krüger series:
// Krüger's forward series in the third flattening n to the sixth order (the form
// published by Karney, J. Geodesy 85 (2011) 475-485), evaluated in long
// double from the defining a and 1/f of each datum only. Accurate to a few
// micrometres within 4000 km of the central meridian, far beyond what the
// tests ask.
#pragma once

#include <array>
#include <cmath>

namespace tmref {

using R = long double;

struct 椭球 {
    R a, f;
};
// Defining constants: Krassovsky 1940 (北京54), IAG 1975 (西安80),
// CGCS2000, WGS84.
inline constexpr 椭球 北京54{6378245.0L, 1 / 298.3L};
inline constexpr 椭球 西安80{6378140.0L, 1 / 298.257L};
inline constexpr 椭球 国家2000{6378137.0L, 1 / 298.257222101L};
inline constexpr 椭球 WGS84{6378137.0L, 1 / 298.257223563L};

inline constexpr R 每度 = 3.14159265358979323846264338327950288L / 180;

class 投影 {
public:
    explicit 投影(const 椭球& E) {
        const R n = E.f / (2 - E.f), n2 = n * n, n3 = n2 * n, n4 = n3 * n, n5 = n4 * n, n6 = n5 * n;
        e_ = std::sqrt(E.f * (2 - E.f));
        A_ = E.a / (1 + n) * (1 + n2 / 4 + n4 / 64 + n6 / 256);
        al_ = {n / 2 - 2 * n2 / 3 + 5 * n3 / 16 + 41 * n4 / 180 - 127 * n5 / 288 + 7891 * n6 / 37800,
               13 * n2 / 48 - 3 * n3 / 5 + 557 * n4 / 1440 + 281 * n5 / 630 - 1983433 * n6 / 1935360,
               61 * n3 / 240 - 103 * n4 / 140 + 15061 * n5 / 26880 + 167603 * n6 / 181440,
               49561 * n4 / 161280 - 179 * n5 / 168 + 6601661 * n6 / 7257600,
               34729 * n5 / 80640 - 3418889 * n6 / 1995840,
               212378941 * n6 / 319334400};
    }

    // Latitude, longitude from the meridian (degrees) → northing, easting
    // from the meridian (metres, scale k0, no false origin).
    void 正算(R 纬度, R 经差, R k0, R& x, R& y) const {
        const R phi = 纬度 * 每度, lam = 经差 * 每度;
        const R s = std::sin(phi);
        const R t = std::sinh(std::atanh(s) - e_ * std::atanh(e_ * s));
        const R xi1 = std::atan2(t, std::cos(lam));
        const R eta1 = std::atanh(std::sin(lam) / std::sqrt(1 + t * t));
        R xi = xi1, eta = eta1;
        for (int j = 1; j <= 6; ++j) {
            xi += al_[j - 1] * std::sin(2 * j * xi1) * std::cosh(2 * j * eta1);
            eta += al_[j - 1] * std::cos(2 * j * xi1) * std::sinh(2 * j * eta1);
        }
        x = k0 * A_ * xi;
        y = k0 * A_ * eta;
    }

private:
    R e_ = 0, A_ = 0;
    std::array<R, 6> al_{};
};

}  // namespace tmref
