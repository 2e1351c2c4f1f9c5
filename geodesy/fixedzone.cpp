// The six fixed-zone conversions (packed degrees, zone number in Y) and the
// space rectangular conversion. Degrees reach radians through the decimal
// path of the numeric core (度分秒转弧度双精度), as in every packed-degree
// list of this system; the series itself is plain binary64 (series.h).
#include "geodesy/projection.h"
#include "geodesy/series.h"

#include "numeric/circular.h"
#include "numeric/decimal.h"
#include "numeric/rounding.h"

#include <cmath>

namespace {

const QString 运算溢出 = QStringLiteral("错误溢出?坐标转换运算时超出范围");

struct 带规则 {
    ZoneWidthCode 宽码;
    double 守护;    // |L − L0| beyond this: the point's own longitude picks the meridian
    double 跨带限;  // distance from the meridian beyond which the note says 跨带
};

double 标准子午线(double v, ZoneWidthCode w) {
    if (w == 6) return 六度带中央子午线(v);
    if (w == 3) return 3 * std::nearbyint(v / 3);
    return 1.5 * std::nearbyint(v / 1.5);
}

QString 正算(double& B, double& L, double L0, const QString& 键, const 带规则& 规则, const QString& 范围错误) {
    设置椭球(键);
    const 椭球记录& E = 坐标状态.EllipsoidRecord;
    auto 失败 = [&](const QString& 附注) { B = 0; L = 0; return 附注; };
    if (!(B >= -90 && B <= 90 && L >= -180 && L <= 180)) return 失败(范围错误);
    // A coarse test on the packed numbers as they stand: minutes are not
    // converted, which is close enough to decide between L and L0.
    const double v = std::fabs(L - L0) > 规则.守护 ? L : L0;
    坐标状态.CentralMeridian = 标准子午线(v, 规则.宽码);
    const double CM = 坐标状态.CentralMeridian;
    const double Brad = 度分秒转弧度双精度(B);
    // The same as 度分秒转弧度双精度(L), reading the packed number once.
    const double L度 = 度转梯度双精度(L);
    const double Lrad = 十进制度转弧度(L度);
    // "==" (no number for this meridian) reads as 0.
    const double Z = 中央子午线转带号(CM, 规则.宽码, E.EastCount).toInt();
    const double Z1 = Z * 1000000;
    const double 偏移 = Z1 < 0 ? Z1 - E.FE : Z1 + E.FE;
    double X, Y;
    if (!高斯正算(E, Brad, Lrad - 十进制度转弧度(CM), 偏移, X, Y)) return 失败(运算溢出);
    B = 偶舍入(X, 3);
    L = 偶舍入(Y, 3);
    const double d = std::fabs(CM - L度);
    if (d > 规则.跨带限) return QStringLiteral("……跨带 ") + 双精度文本(CM) + QStringLiteral("°");
    if (CM != L0) return QStringLiteral("┄┄中央 ") + 双精度文本(CM) + QStringLiteral("°");
    return QString();
}

struct 反算限 {
    ZoneWidthCode 宽码;
    double Y下限, Y上限;
    QString 零零, 下限错, 上限错, X错;
};

// Degrees of a calculated angle to the shown packed form: packed, rounded
// to 10 decimals ties to even, carried (60″ → 1′, 60′ → 1°).
double 度到显示度分秒(double 度) {
    return 规范度分秒(偶舍入(度转度分秒双精度(度), 10));
}

QString 反算(double& X, double& Y, const QString& 键, const 反算限& 限) {
    设置椭球(键);
    const 椭球记录& E = 坐标状态.EllipsoidRecord;
    auto 失败 = [&](const QString& 附注) { X = 0; Y = 0; return 附注; };
    if (X == 0 && Y == 0) return 失败(限.零零);
    if (!(Y >= 限.Y下限)) return 失败(限.下限错);
    if (!(Y <= 限.Y上限)) return 失败(限.上限错);
    if (!(std::fabs(X - E.FN) <= 10002200)) return 失败(限.X错);
    const bool 北负 = X < 0;
    const double x = std::fabs(X);
    const auto Z = static_cast<std::int16_t>(std::trunc(Y / 1000000));
    坐标状态.CentralMeridian = 带号转中央子午线(Z, 限.宽码, E.EastCount);
    const double CM = 坐标状态.CentralMeridian;
    if (!(CM >= -180 && CM <= 180)) return 失败(QStringLiteral("错误?原始东Y坐标超出常规范围!"));
    double B, l;
    if (!高斯反算(E, x - E.FN, Y - Z * 1000000.0 - E.FE, B, l)) return 失败(运算溢出);
    double 纬 = 0;
    if (B != 0) {
        纬 = 度到显示度分秒(B * 级数::每弧度度);
        if (北负) {
            // The sign goes in front of the number's text: a latitude that is
            // already negative (a southern X below FN given as negative) has
            // no reading, the same as any other fault of the series.
            if (纬 < 0) return 失败(运算溢出);
            纬 = -纬;
        }
    }
    const double 经 = 度到显示度分秒(l * 级数::每弧度度 + CM);
    if (!std::isfinite(纬) || !std::isfinite(经)) return 失败(运算溢出);
    X = 纬;
    Y = 经;
    return QString();
}

}  // namespace

QString 经纬度转六度带(double& B, double& L, double L0, const QString& 键) {
    return 正算(B, L, L0, 键, {6, 4, 3}, QStringLiteral("错误溢出?原始经纬度数值超出常规范围 |x|<=90 |y|<=180"));
}
QString 经纬度转三度带(double& B, double& L, double L0, const QString& 键) {
    return 正算(B, L, L0, 键, {3, 3, 1.5}, QStringLiteral("错误溢出?原始角度数值超出常规范围 |x|<=90 |y|<=180"));
}
QString 经纬度转一点五度带(double& B, double& L, double L0, const QString& 键) {
    return 正算(B, L, L0, 键, {1, 2, 0.75}, QStringLiteral("错误溢出?原始角度数值超出常规范围 |x|<=90 |y|<=180"));
}

QString 六度带转经纬度(double& X, double& Y, const QString& 键) {
    static const 反算限 限{6, 1001000, 60999000,
                          QStringLiteral("错误?原始六度带坐标 0 0 超出常规范围!"),
                          QStringLiteral("错误?原始六度带坐标 Y<01001000 超出常规范围!"),
                          QStringLiteral("错误?原始六度带坐标 Y>60999000 超出常规范围!"),
                          QStringLiteral("错误?原始六度带坐标|X|>10002200 超出常规范围!")};
    return 反算(X, Y, 键, 限);
}
QString 三度带转经纬度(double& X, double& Y, const QString& 键) {
    static const 反算限 限{3, 1000, 119999000,
                          QStringLiteral("错误?原始三度带坐标 0 0 超出常规范围!"),
                          QStringLiteral("错误?原始三度带坐标 Y<1000 超出常规范围!"),
                          QStringLiteral("错误?原始三度带坐标 Y>119999000 超出常规范围!"),
                          QStringLiteral("错误?原始三度带坐标|X|>10002200 超出常规范围!")};
    return 反算(X, Y, 键, 限);
}
QString 一点五度带转经纬度(double& X, double& Y, const QString& 键) {
    static const 反算限 限{1, 1000, 239999000,
                          QStringLiteral("错误?原始1.5度带坐标 0 0 超出常规范围!"),
                          QStringLiteral("错误?原始1.5度带坐标 Y<1000 超出常规范围!"),
                          QStringLiteral("错误?原始1.5度带坐标 Y>239999000 超出常规范围!"),
                          QStringLiteral("错误?原始1.5度带坐标|X|>10002200 超出常规范围!")};
    return 反算(X, Y, 键, 限);
}

bool 经纬度转空间直角(double& B, double& L, double& H, const QString& 键) {
    设置椭球(键);
    const 椭球记录& E = 坐标状态.EllipsoidRecord;
    if (B == 90 || B == -90) {
        const double z = B == 90 ? E.c + H : -E.c - H;
        B = 0;
        L = 0;
        H = z;
        return true;
    }
    const double Br = 度分秒转弧度双精度(B);
    const double Lr = 度分秒转弧度双精度(L);
    const double X = (E.c + H) * std::cos(Br) * std::cos(Lr);
    const double Y = (E.c + H) * std::cos(Br) * std::sin(Lr);
    const double Z = ((1 - E.e * E.e) * E.c + H) * std::sin(Br);
    auto 三位 = [](double v) {
        double r = 0;
        return 文本转双精度(格式化数值(v, QStringLiteral("0.000")), r) ? r : 0.0;
    };
    B = 三位(X);
    L = 三位(Y);
    H = 三位(Z);
    return true;
}
