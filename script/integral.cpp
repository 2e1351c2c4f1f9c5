// The definite integral: the statement handler and the midpoint rule.
//
// The loop works in doubles on purpose: it is the one place of the script
// language that runs an expression tens of thousands of times, so it goes
// round the guarded decimal arithmetic, and keeps its two running sums
// free of binary noise with Double和. The integration variable is X.
#include "script/script.h"

#include "expression/evaluator.h"
#include "numeric/decimal.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "script/script_detail.h"
#include "numeric/interaction.h"
#include "expression/state.h"
#include "numeric/state.h"
#include "script/state.h"

#include <chrono>
#include <cmath>

using namespace script_detail;

namespace {

double 稳定时钟() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

秒钟源 当前时钟 = &稳定时钟;

// Strip-count limits: the ceiling keeps a run within minutes on a full
// evaluator; 1000 is the default of a term without a fourth group, 100 the
// replacement of a count below 1.
constexpr std::int32_t 最多条数 = 100000;
constexpr std::int32_t 缺省条数 = 1000;
constexpr std::int32_t 过小条数替代 = 100;
constexpr int 估时轮次 = 100;           // the estimate rests on the first 100 rounds
constexpr double 提醒分钟数 = 2.0;      // ask when the whole loop may take this long

// x rounded to 12 places, halves to even, on its 15-digit decimal form;
// a magnitude beyond the decimal has no places worth rounding and stays.
double 十二位舍入(double x) {
    Decimal96 d;
    if (Decimal96::fromDouble(x, d) != Decimal96::Status::Ok) return x;
    return d.rounded(12, Decimal96::Rounding::HalfEven).toDouble();
}

// A double rounded half-even to a 32-bit integer; false outside the range.
bool 双精度取整(double x, std::int32_t& n) {
    if (!std::isfinite(x)) return false;
    const double r = std::nearbyint(x);
    if (r < -2147483648.0 || r > 2147483647.0) return false;
    n = static_cast<std::int32_t>(r);
    return true;
}

数值& 变量X() { return 变量状态.字母变量[static_cast<std::size_t>(字母序号(u'X'))]; }

// The reasons a term fails, as the user reads them.
const QString 数据异常 = QStringLiteral("处理定积分表达式时，由于数据异常，引发程序计算错误！");

}  // namespace

秒钟源 安装积分时钟(秒钟源 源) {
    秒钟源 旧 = 当前时钟;
    当前时钟 = 源 ? 源 : &稳定时钟;
    return 旧;
}

double 定积分计算(const QString& 积分项) {
    脚本状态.积分错误.clear();
    脚本状态.积分提示.clear();
    const QString t = txt::trim(积分项);
    const int p = txt::instr(t, QString(QChar(0x222B)));  // ∫
    脚本状态.积分符号位置 = p;
    auto 出错 = [](const QString& 文字) {
        脚本状态.积分错误 = 文字;
        return 0.0;
    };
    if (p < 1) return 出错(QStringLiteral("没有定积分符号错误！"));
    if (p > 1) return 出错(QStringLiteral("定积分符号前有字符错误！"));

    const int e = 括号组末位(t, p);
    if (txt::len(t) != e) return 出错(QStringLiteral("定积分算式后有字符错误！"));
    if (e < 8)
        return 出错(QStringLiteral("处理定积分表达式时，发现错误 -- 括号不符合积分配对格式！需要修改表达式！"));
    // Copy the groups now: evaluations below do not touch 括号组位置, but
    // a reader should not have to know that.
    const QString A文本 = 括号组文本(t, 1);
    const QString B文本 = 括号组文本(t, 2);
    const QString 式 = 括号组文本(t, 3);
    const int 开4 = 脚本状态.括号组位置[6], 闭4 = 脚本状态.括号组位置[7];
    const bool 有条数 = 闭4 > 开4 && 开4 >= 8;
    const QString N文本 = 有条数 ? 括号组文本(t, 4) : QString();

    double A = 宽松读数(表达式计算(A文本));
    if (计算状态.错误数 > 0) return 出错(QStringLiteral("定积分表达式---参数A计算错误！"));
    double B = 宽松读数(表达式计算(B文本));
    if (计算状态.错误数 > 0) return 出错(QStringLiteral("定积分表达式---参数B计算错误！"));
    if (!std::isfinite(A) || !std::isfinite(B)) return 出错(数据异常);
    // The integral from 2 to 0 is taken as that from 0 to 2: the sign never
    // changes. Required behaviour of the language.
    if (A > B) std::swap(A, B);
    if (A == B) return 0.0;

    std::int32_t N = 缺省条数;
    if (有条数) {
        const double n = 宽松读数(表达式计算(N文本));
        if (计算状态.错误数 > 0) return 出错(QStringLiteral("定积分表达式---参数N计算错误！"));
        if (!双精度取整(n, N)) return 出错(数据异常);
        if (N < 1) N = 过小条数替代;
        if (N > 最多条数) N = 最多条数;
    }

    const 数值 X备份 = 变量X();
    const double 宽 = B - A;
    if (!std::isfinite(宽)) return 出错(数据异常);
    const double dx = 十二位舍入(宽 / N);
    if (!(dx > 0)) return 出错(QStringLiteral("定积分表达式---dx间隔太小错误！"));
    // Recount the strips from the rounded dx, so that they end near B.
    if (!双精度取整(宽 / dx, N)) return 出错(数据异常);

    double X = Double和(A, dx / 2);
    double S = 0.0;
    变量X() = 数值(X);
    const double t0 = 当前时钟();
    for (std::int32_t i = 1; i <= N; ++i) {
        const double y = 宽松读数(表达式计算(式));
        S = Double和(S, y * dx);
        X = Double和(X, dx);
        变量X() = 数值(X);
        if (计算状态.错误数 > 0) break;
        if (i == 估时轮次) {
            const double 分钟 = N * (当前时钟() - t0) / 6000.0;
            if (分钟 >= 提醒分钟数) {
                const QString 文字 = QStringLiteral("计算此定积分算式的总循环时间可能超过： ")
                                   + QString::number(分钟, 'f', 3)
                                   + QStringLiteral(" 分钟。\r\n\r\n是否终止当前循环，改小循环次数(会降低精度)后再进行计算？");
                if (交互().询问(文字, QStringLiteral("提醒：耗时太多！"))) {
                    // Stopped by the user: X stays where the loop left it.
                    return 出错(QStringLiteral("你手工终止了---积分算式的计算循环！"));
                }
            }
        }
    }
    变量X() = X备份;
    if (计算状态.错误数 > 0) {
        脚本状态.积分错误 += QStringLiteral("在循环计算积分表达式时，出现计算错误！");
        return 0.0;
    }
    if (!std::isfinite(S)) return 出错(数据异常);
    脚本状态.积分提示 = QStringLiteral("已经成功处理完积分表达式。");
    return S;
}

bool 积分赋值算式(const QString& 语句) {
    const QString s = txt::trim(语句);
    const int p = txt::instr(s, QString(QChar(0x222B)));  // ∫
    脚本状态.积分符号位置 = p;
    if (p >= 3) {
        const int 末位 = 括号组末位(s, p);
        if (末位 >= 7) {
            // One character, the "=", is taken to stand before "∫".
            const QChar 名 = 目标字母(txt::left(s, p - 2));
            const QString 项 = txt::mid(s, p, 末位 - p + 1);  // anything behind is ignored
            const double r = 定积分计算(项);
            if (txt::trim(脚本状态.积分错误).isEmpty() && 计算状态.错误数 < 1) {
                存入变量(名, 数值(r));
                记录精度损失();  // the result is a double
                return true;
            }
        }
    }
    // A malformed statement reports only what the last integral left in
    // 积分错误; with that blank it fails silently.
    if (!txt::trim(脚本状态.积分错误).isEmpty()) 报告错误(脚本状态.积分错误);
    return false;
}
