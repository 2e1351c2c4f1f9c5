// Ellipsoid constants, zone-number rules and the general conversions of the
// batch screens. The six fixed-zone procedures and the space conversion,
// which read packed degrees through the numeric core, are in fixedzone.cpp.
#include "geodesy/projection.h"
#include "geodesy/series.h"

#include "numeric/decimal.h"
#include "numeric/text.h"

#include <array>
#include <cmath>

namespace {

// The four constant sets, in the field order of 椭球记录 from a to c. The
// digits are the published working constants of each datum's projection
// tables, copied as they stand; several differ from a recomputation in the
// last places and those differences are part of every stored coordinate.
struct 常数组 {
    double a, b, e, e2, e4, ep, ep2, f, n, n2, n3, A, c2, c4, c6, M0, A0, A2, A4, A6, c;
};
constexpr std::array<常数组, 4> 常数表{{
    // 北京54 (Krassovsky 1940)
    {6378245.0, 6356863.01877305, 0.0818133340169259, 0.00669342162296509, 4.48018930227766e-5, 0.0820885218205483, 0.00673852541468263, 0.00335232986925914, 0.00167897918065794, 2.81897108908282e-6, 4.7329937694467e-9, 6367558.49701231, 0.00251846477752342, 3.69988589620589e-6, 7.44460478319216e-9, 6335552.71700043, 0.998324538648532, 0.00251424646431344, 2.63828914994578e-6, 3.41657831471184e-9, 6399698.91910435},
    // 西安80 (IAG 1975)
    {6378140.0, 6356755.2882, 0.0818192213744105, 0.0066943849863148, 4.4814790345e-5, 0.0820944687906576, 0.00673950180602026, 0.003352813171238, 0.00167922164384145, 2.8197853291e-6, 4.7350446e-9, 6367452.13294706, 0.002518828470568, 3.700954578e-6, 7.447831e-9, 6335442.27534339, 0.998324297200603, 0.002514608940384, 2.639050543e-6, 3.41805e-9, 6399596.65198934},
    // 国家2000 (CGCS2000)
    {6378137.0, 6356752.31414036, 0.0818191910428158, 0.00669438002290079, 4.48147238910132e-5, 0.0820944381519172, 0.00673949677547896, 0.00335281068118232, 0.00167922039462875, 2.81978113373712e-6, 4.73503398816e-9, 6367449.14590845, 0.0025188265967582, 3.70094907196402e-6, 7.44781387721e-9, 6335439.32708388, 0.998324298444585, 0.00251460707284482, 2.6390466202309e-6, 3.41804613678e-9, 6399593.62586402},
    // WGS84
    {6378137.0, 6356752.3142, 0.081819190928906, 0.0066943800042608, 4.4814723641e-5, 0.0820944380368541, 0.00673949675658688, 0.00335281067183097, 0.00167922038993735, 2.819781118e-6, 4.735034e-9, 6367449.14593825, 0.0025188265897211, 3.7009490513e-6, 7.4478139e-9, 6335439.32720276, 0.998324298449256, 0.002514607065831, 2.639046605e-6, 3.41805e-9, 6399593.62575846},
}};
static_assert(常数表.size() == 4);

// The eight keys: constant set, zone counting, false northing, scale.
struct 键定义 {
    const char16_t* 键;
    int 组;
    bool EastCount;
    double FN, k0;
};
constexpr std::array<键定义, 8> 键表{{
    {u"BJ", 0, true, 0, 1.0},
    {u"XA", 1, true, 0, 1.0},
    {u"2K", 2, true, 0, 1.0},
    {u"WGS", 3, true, 0, 1.0},
    {u"WGSN", 3, false, 0, 1.0},
    {u"WGSS", 3, false, 10000000, 1.0},
    {u"UTMN", 3, false, 0, 0.9996},
    {u"UTMS", 3, false, 10000000, 0.9996},
}};
static_assert(键表.size() == 8);
constexpr double 东伪偏移 = 500000;  // FE of every key, m

const 键定义* 查键(const QString& 键) {
    const QString k = txt::trim(键).toUpper();
    for (const auto& d : 键表)
        if (k == QStringView(d.键)) return &d;
    return nullptr;
}

// Zone number text "00" → integer; "==" (no zone) → 0.
int 带号文本值(const QString& s) {
    bool ok = false;
    const int z = s.toInt(&ok);
    return ok ? z : 0;
}

// A meridian in a note: its shortest text, "117", "70.5".
QString 度数文本(double d) { return 双精度文本(d); }

}  // namespace

bool 是已知椭球键(const QString& 键) { return 查键(键) != nullptr; }

void 设置椭球(const QString& 键) {
    const 键定义* d = 查键(键);
    if (!d) return;  // unknown key: the previous ellipsoid stays in force
    const 常数组& c = 常数表[static_cast<size_t>(d->组)];
    椭球记录& r = 坐标状态.EllipsoidRecord;
    r.EastCount = d->EastCount;
    r.a = c.a; r.b = c.b; r.e = c.e; r.e2 = c.e2; r.e4 = c.e4;
    r.ep = c.ep; r.ep2 = c.ep2; r.f = c.f;
    r.FN = d->FN; r.FE = 东伪偏移; r.k0 = d->k0;
    r.n = c.n; r.n2 = c.n2; r.n3 = c.n3; r.A = c.A;
    r.c2 = c.c2; r.c4 = c.c4; r.c6 = c.c6; r.M0 = c.M0;
    r.A0 = c.A0; r.A2 = c.A2; r.A4 = c.A4; r.A6 = c.A6; r.c = c.c;
}

double 偶舍入(double x, int 位) {
    if (!std::isfinite(x)) return x;
    if (位 < 0) 位 = 0;
    if (位 > 15) 位 = 15;
    static constexpr std::array<double, 16> 十幂{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7,
                                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const double p = 十幂[static_cast<size_t>(位)];
    const double y = x * p;
    const double ay = std::fabs(y);
    if (ay >= 4.0e15) return x;  // no digit at that place is held by the double
    const double fr = ay - std::floor(ay);
    // Away from a tie the binary product decides; near one (within what the
    // product and the 15-digit reading can move it) the decimal digits do.
    if (std::fabs(fr - 0.5) > 1e-9 + ay * 4e-15) return std::nearbyint(y) / p;
    Decimal96 d;
    if (Decimal96::fromDouble(x, d) != Decimal96::Status::Ok) return x;
    return d.rounded(位, Decimal96::Rounding::HalfEven).toDouble();
}

QString 中央子午线转带号(double L, ZoneWidthCode 带宽, bool EastCount) {
    if (!(L >= -180 && L <= 180)) return QStringLiteral("==");
    if (!EastCount) L += 180;
    else if (L < 0) L += 360;
    double z = 0;
    switch (带宽) {
    case 1:
        if (L == 0) L = 360;
        if (std::fabs(std::fmod(L, 1.5)) >= 1e-9) return QStringLiteral("==");
        z = std::nearbyint((L - 1.5) / 1.5);
        if (z < 1) z = 0;
        break;
    case 3:
        if (std::fabs(std::fmod(L, 3.0)) >= 1e-9) return QStringLiteral("==");
        z = std::nearbyint(L / 3);
        break;
    case 6:
        if (std::fabs(std::fmod(L + 3, 6.0)) >= 1e-9) return QStringLiteral("==");
        z = std::nearbyint((L + 3) / 6);
        break;
    default:
        return QStringLiteral("==");
    }
    return QStringLiteral("%1").arg(static_cast<int>(z), 2, 10, QChar(u'0'));
}

double 带号转中央子午线(std::int16_t z, ZoneWidthCode w, bool EastCount) {
    if (w == 1 && z == 0) return 1.5;
    if (z <= 0) return 0;
    if ((w == 6 && z > 60) || (w == 3 && z > 119) || (w == 1 && z > 238)) return 0;
    double L;
    if (w == 1) L = (z + 1) * 1.5;
    else if (w == 3) L = z * 3.0;
    else if (w == 6) L = z * 6.0 - 3;
    else return 0;
    if (EastCount) {
        if (L > 180) L -= 360;
    } else {
        L -= 180;
    }
    // Kept to one decimal, as the zone tables print it ("000.0").
    return std::round(L * 10) / 10;
}

QString 度数转公里网(double& 纬度, double& 经度, double L0, ZoneWidthCode 带宽) {
    const 椭球记录& E = 坐标状态.EllipsoidRecord;
    auto 失败 = [&](const QString& 附注) { 纬度 = 0; 经度 = 0; return 附注; };
    const double B = 纬度, L = 经度;
    if (!(B >= -90 && B <= 90 && L >= -180 && L <= 180))
        return 失败(QStringLiteral("错误? 经纬度应 |x|<=90 |y|<=180"));
    const double 差 = std::fabs(L - L0);
    double 限;
    坐标状态.ZoneNumber = 0;
    switch (带宽) {
    case 1:
        坐标状态.CentralMeridian = 1.5 * std::nearbyint((差 > 2 ? L : L0) / 1.5);
        限 = 0.75;
        break;
    case 3:
        坐标状态.CentralMeridian = 3 * std::nearbyint((差 > 3 ? L : L0) / 3);
        限 = 1.5;
        break;
    case 6:
        坐标状态.CentralMeridian = 六度带中央子午线(差 > 4 ? L : L0);
        限 = 3;
        break;
    default:
        if (!(差 <= 4)) return 失败(QStringLiteral("错误? 中央子午线设置有误！"));
        坐标状态.CentralMeridian = L0;
        限 = 4;
        break;
    }
    const double CM = 坐标状态.CentralMeridian;
    if (带宽 == 1 || 带宽 == 3 || 带宽 == 6)
        坐标状态.ZoneNumber = static_cast<std::int16_t>(
            带号文本值(中央子午线转带号(CM, 带宽, E.EastCount)));
    const double Z1 = 坐标状态.ZoneNumber * 1000000.0;
    const double 偏移 = Z1 < 0 ? Z1 - E.FE : Z1 + E.FE;
    double X, Y;
    if (!高斯正算(E, B * 级数::每度弧度, L * 级数::每度弧度 - CM * 级数::每度弧度, 偏移, X, Y))
        return 失败(QStringLiteral("错误溢出?坐标转换时超出计算范围！"));
    纬度 = 偶舍入(X, 3);
    经度 = 偶舍入(Y, 3);
    const double d = std::fabs(L - CM);
    if (d > 限) return QStringLiteral("┄跨带 ") + 度数文本(CM) + QStringLiteral("°");
    if (CM != L0) return QStringLiteral("┄中央 ") + 度数文本(CM) + QStringLiteral("°");
    return QString();
}

QString 公里网转度数(double& X, double& Y, double L0, ZoneWidthCode 带宽) {
    const 椭球记录& E = 坐标状态.EllipsoidRecord;
    auto 失败 = [&](const QString& 附注) { X = 0; Y = 0; return 附注; };
    double x = X - E.FN;
    X = x;
    if (!(x >= -10002200 && x <= 10002200)) return 失败(QStringLiteral("错误?公里网坐标(|X|)超出常规!"));
    double y = Y;
    std::int16_t z = 0;
    if (y >= 1000000) {
        const double q = std::trunc(y / 1000000);
        if (!(q <= 32767)) return 失败(QStringLiteral("错误溢出?转换时超出计算范围！"));  // 16-bit zone
        z = static_cast<std::int16_t>(q);
        y -= z * 1000000.0;
    }
    if (!(y >= 0)) return 失败(QStringLiteral("错误?公里网坐标(Y<0)超出常规!"));
    y -= E.FE;
    double CM;
    switch (带宽) {
    case 1: CM = z != 0 ? 带号转中央子午线(z, 1, E.EastCount) : 1.5 * std::nearbyint(L0 / 1.5); break;
    case 3: CM = z != 0 ? 带号转中央子午线(z, 3, E.EastCount) : 3 * std::nearbyint(L0 / 3); break;
    case 6: CM = z != 0 ? 带号转中央子午线(z, 6, E.EastCount) : 六度带中央子午线(L0); break;
    default: CM = L0; break;  // a free meridian: a zone number typed in front of Y is dropped
    }
    坐标状态.CentralMeridian = CM;
    const bool x负 = x < 0, y负 = y < 0;
    double B, l;
    if (!高斯反算(E, std::fabs(x), std::fabs(y), B, l))
        return 失败(QStringLiteral("错误溢出?转换时超出计算范围！"));
    if (B != 0) {
        B = 偶舍入(B * 级数::每弧度度, 10);
        if (x负) B = -B;
    }
    if (l != 0) {
        l = 偶舍入(l * 级数::每弧度度, 10);
        if (y负) l = -l;
    }
    // A meridian that is no number (a caller's NaN) leaves no longitude.
    if (!std::isfinite(CM + l)) return 失败(QStringLiteral("错误溢出?转换时超出计算范围！"));
    X = B;
    Y = CM + l;
    return QString();
}

QString 公里网换带(double& X, double& Y, double 左中央子午线, double 右中央子午线) {
    QString 附注 = 公里网转度数(X, Y, 左中央子午线, 0);
    附注 += 度数转公里网(X, Y, 右中央子午线, 0);
    return 附注;
}
