#include "numeric/value.h"

#include <cmath>

QString 数值::文本() const {
    switch (类型_) {
    case 类型::空: return QString();
    case 类型::文本: return 文本_;
    case 类型::十进制: return 十进制_.toText();
    case 类型::双精度: return 双精度文本(双精度_);
    case 类型::整数: return QString::number(整数_);
    }
    return QString();
}

bool 转十进制(const 数值& v, Decimal96& out) {
    switch (v.kind()) {
    case 数值::类型::空: out = Decimal96(); return true;
    case 数值::类型::十进制: out = v.十进制值(); return true;
    case 数值::类型::整数: out = Decimal96::fromInt64(v.整数值()); return true;
    case 数值::类型::双精度: return Decimal96::fromDouble(v.双精度值(), out) == Decimal96::Status::Ok;
    case 数值::类型::文本: return Decimal96::fromText(v.文本值(), out) == Decimal96::Status::Ok;
    }
    return false;
}

bool 转双精度(const 数值& v, double& out) {
    double d = 0.0;
    switch (v.kind()) {
    case 数值::类型::空: d = 0.0; break;
    case 数值::类型::十进制: d = v.十进制值().toDouble(); break;
    case 数值::类型::整数: d = v.整数值(); break;
    case 数值::类型::双精度: d = v.双精度值(); break;
    case 数值::类型::文本:
        if (!文本转双精度(v.文本值(), d)) return false;
        break;
    }
    if (!std::isfinite(d)) return false;
    out = d;
    return true;
}

int 符号(const 数值& v) {
    switch (v.kind()) {
    case 数值::类型::空: return 0;
    case 数值::类型::十进制: {
        const Decimal96& d = v.十进制值();
        return d.isZero() ? 0 : (d.negative() ? -1 : 1);
    }
    case 数值::类型::整数: return v.整数值() > 0 ? 1 : (v.整数值() < 0 ? -1 : 0);
    case 数值::类型::双精度: {
        const double d = v.双精度值();
        return d > 0 ? 1 : (d < 0 ? -1 : 0);
    }
    case 数值::类型::文本: {
        // A double holds every magnitude a decimal does and more.
        double d = 0.0;
        if (!文本转双精度(v.文本值(), d)) return 0;
        return d > 0 ? 1 : (d < 0 ? -1 : 0);
    }
    }
    return 0;
}

bool 是零(const 数值& v) {
    if (v.是文本()) {
        double d = 0.0;
        if (!文本转双精度(v.文本值(), d)) return false;
        return d == 0.0;
    }
    return 符号(v) == 0;
}

namespace {

// Which kind two operands work in. Soft operands (empty, integer, text)
// take the other's kind; two soft ones work as decimals.
enum class 工作类 { 十进制, 双精度 };

工作类 工作类型(const 数值& a, const 数值& b) {
    if (a.是十进制() || b.是十进制()) return 工作类::十进制;
    if (a.是双精度() || b.是双精度()) return 工作类::双精度;
    return 工作类::十进制;
}

}  // namespace

bool 数值运算(const 数值& a, 运算符 op, const 数值& b, 数值& out) {
    if (工作类型(a, b) == 工作类::十进制) {
        Decimal96 x, y, r;
        if (!转十进制(a, x) || !转十进制(b, y)) return false;
        Decimal96::Status st = Decimal96::Status::Invalid;
        switch (op) {
        case 运算符::加: st = Decimal96::add(x, y, r); break;
        case 运算符::减: st = Decimal96::sub(x, y, r); break;
        case 运算符::乘: st = Decimal96::mul(x, y, r); break;
        case 运算符::除: st = Decimal96::div(x, y, r); break;
        }
        if (st != Decimal96::Status::Ok) return false;
        out = 数值(r);
        return true;
    }
    double x = 0.0, y = 0.0;
    if (!转双精度(a, x) || !转双精度(b, y)) return false;
    double r = 0.0;
    switch (op) {
    case 运算符::加: r = x + y; break;
    case 运算符::减: r = x - y; break;
    case 运算符::乘: r = x * y; break;
    case 运算符::除:
        if (y == 0.0) return false;
        r = x / y;
        break;
    }
    if (!std::isfinite(r)) return false;
    out = 数值(r);
    return true;
}

bool 数值比较(const 数值& a, const 数值& b, int& out) {
    if (a.是文本() && b.是文本()) {
        const int c = QString::compare(a.文本值(), b.文本值(), Qt::CaseSensitive);
        out = c < 0 ? -1 : (c > 0 ? 1 : 0);
        return true;
    }
    if (工作类型(a, b) == 工作类::十进制) {
        Decimal96 x, y;
        const bool okx = 转十进制(a, x), oky = 转十进制(b, y);
        if (okx && oky) {
            out = Decimal96::compare(x, y);
            return true;
        }
        // A side that the decimal cannot hold (a double or a text beyond
        // its range) still has a numeric order: compare as doubles.
        if ((!okx && !a.是双精度() && !a.是文本()) || (!oky && !b.是双精度() && !b.是文本()))
            return false;
    }
    double x = 0.0, y = 0.0;
    if (!转双精度(a, x) || !转双精度(b, y)) return false;
    out = x < y ? -1 : (x > y ? 1 : 0);
    return true;
}
