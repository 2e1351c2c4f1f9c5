#include "numeric/statistics.h"

#include "numeric/guarded.h"
#include "numeric/powers.h"
#include "numeric/text.h"
#include "numeric/state.h"

namespace {

constexpr Decimal96 k零;

数值 数组失败(const char16_t* 名称) {
    报告错误(QStringLiteral("对数组[") + QString::fromUtf16(名称) +
             QStringLiteral("]时超出本程序计算范围！返回 [0] 。"));
    return 数值(k零);
}

bool 是空白项(const 数值& v) { return v.是空() || txt::trim(v.文本()).isEmpty(); }

// The sum of the first n entries through the guards; false when the list
// is shorter than n.
bool 合计(int n, const QList<数值>& a, 数值& s) {
    if (n > a.size()) return false;
    s = 数值(k零);
    for (int i = 0; i < n; ++i) s = 求两数和(s, a[i]);
    return true;
}

数值 极值(int n, const QList<数值>& a, bool 求大, const char16_t* 名称) {
    if (n < 1) return 数值(k零);
    if (n > a.size()) return 数组失败(名称);
    数值 m = Hvt数转数(a[0]);
    for (int i = 1; i < n; ++i) {
        const 数值 x = Hvt数转数(a[i]);
        int c = 0;
        if (!数值比较(m, x, c)) return 数组失败(名称);
        if (求大 ? c < 0 : c > 0) m = x;
    }
    return m;
}

// Σ (mean - a(i))² in plain tagged arithmetic, then the root of S / 除数.
数值 均方差(int n, const QList<数值>& a, int 除数, const char16_t* 名称) {
    if (n < 1) return 数值(k零);
    if (n > a.size()) return 数组失败(名称);
    const 数值 m = 求平均值(n, a);
    数值 S(k零);
    for (int i = 0; i < n; ++i) {
        const 数值 x = 是空白项(a[i]) ? 数值(k零) : Hvt数转数(a[i]);
        数值 d, dd;
        if (!数值减(m, x, d) || !数值乘(d, d, dd) || !数值加(S, dd, S)) return 数组失败(名称);
    }
    if (除数 < 1) return 数值(k零);  // one value has no spread with divisor n - 1
    数值 q;
    Decimal96 qd;
    if (!数值除(S, 数值(除数), q) || !转十进制(q, qd)) return 数组失败(名称);
    return 乘方(数值(qd), 数值(0.5));
}

// 均方差 / mean, faults ignored: 1E+28 over a zero mean, 0 for a zero
// deviation, the empty value when a step fails.
数值 变异系数(int n, const QList<数值>& a, bool 除以n) {
    if (n < 1) return 数值(k零);
    const 数值 m = 求平均值(n, a);
    if (是零(m)) return 数值(1E+28);
    const 数值 sd = 除以n ? 求均方差n(n, a) : 求均方差(n, a);
    if (是零(sd)) return 数值(k零);
    数值 q;
    if (!数值除(sd, m, q)) return 数值();
    return q;
}

}  // namespace

数值 求合计值(int n, const QList<数值>& a) {
    if (n < 1) return 数值(k零);
    数值 s;
    if (!合计(n, a, s)) return 数组失败(u"求合计值");
    return s;
}

数值 求最大值(int n, const QList<数值>& a) { return 极值(n, a, true, u"求最大值"); }
数值 求最小值(int n, const QList<数值>& a) { return 极值(n, a, false, u"求最小值"); }

数值 求平均值(int n, const QList<数值>& a) {
    if (n < 1) return 数值(k零);
    数值 s;
    if (!合计(n, a, s)) return 数组失败(u"求平均值");
    return 求两数商(s, 数值(n));
}

数值 求均方差(int n, const QList<数值>& a) {
    return 均方差(n, a, n - 1, u"求均方差");
}

数值 求均方差n(int n, const QList<数值>& a) { return 均方差(n, a, n, u"求均方差n"); }

数值 求变异系数(int n, const QList<数值>& a) { return 变异系数(n, a, false); }
数值 求变异系数n(int n, const QList<数值>& a) { return 变异系数(n, a, true); }
