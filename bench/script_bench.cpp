// Speed of the script language on the two loops that matter: a definite
// integral at the strip ceiling, and a formula of 30 statements around a
// sum over a list of 1 000 measured lengths.
#include "numeric/decimal.h"
#include "script/script.h"
#include "tests/support/recording.h"
#include "shell/state.h"

#include <benchmark/benchmark.h>

#include <QStringList>
#include <cstdio>

namespace {

void 清零() {
    for (auto& v : 变量状态.字母变量) v = 数值(Decimal96());
    计算状态.输出小数位数 = 8;
    计算状态.高精度开关 = true;
    清除计算状态();
}

// ∫ X^2 sin X over [0, 2] in radians, 100 000 strips (the ceiling).
void BM_积分十万条(benchmark::State& state) {
    交互记录作用域 无提示;  // a slow machine's prompt is answered No
    清零();
    计算状态.角度单位 = 3;
    const QString 句 = QString::fromUtf16(u"F=\u222B(0)(2)(X^2*SIN(X))(100000)");
    for (auto _ : state) {
        清除计算状态();
        const bool ok = 积分赋值算式(句);
        if (!ok || 计算状态.错误数 > 0) state.SkipWithError("integral failed");
        benchmark::DoNotOptimize(变量状态.字母变量[5]);
    }
    计算状态.角度单位 = 60;
}
BENCHMARK(BM_积分十万条)->Unit(benchmark::kMillisecond)->Iterations(3);

// A list of 1 000 lengths in U, and a formula of 30 statements: the sum,
// mean, deviation and a few derived outputs.
QString 三十句公式() {
    QStringList s;
    s << u"N=1000"_qs << u"K=0.5"_qs << u"C=1.0000125"_qs;
    s << QString::fromUtf16(u"L=\u03A3(1)(N)(U)");
    s << u"M=L/N"_qs;
    s << QString::fromUtf16(u"Q=\u03A3(1)(N)(U*U)");
    s << u"D=Q/N-M^2"_qs;
    s << u"S=(D*N/(N-1))^0.5"_qs;
    s << u"E=S/N^0.5"_qs;
    s << u"R=L*C"_qs << u"T=R-L"_qs << u"A=M*K"_qs << u"B=A+S"_qs;
    s << QString::fromUtf16(u"IF(S-1)(G=1)(G=0)");
    s << u"H=(M+S)*(M-S)"_qs << u"P=H/M"_qs << u"Y=P*2+1"_qs << u"Z=Y/3"_qs;
    s << u"W=Z-1"_qs << u"V=W+1"_qs << u"X=V*V"_qs << u"J=X^0.5"_qs;
    s << QString::fromUtf16(u"\u2192总长=L") << QString::fromUtf16(u"\u2192平均=M")
      << QString::fromUtf16(u"\u2192中误差=S") << QString::fromUtf16(u"\u2192均值中误差=E")
      << QString::fromUtf16(u"\u2192改正后=R") << QString::fromUtf16(u"\u2192改正数=T")
      << QString::fromUtf16(u"\u2192标志=G") << u"J"_qs;
    return s.join(u';');
}

void 装入长度(数组变量& a, int n) {
    a.元素 = QStringList{QString()};
    for (int i = 1; i <= n; ++i)
        a.元素 << QString::number(100 + (i * 7919 % 1000) / 1000.0 + i % 13, 'f', 3);  // 100.000..112.999
    a.个数 = n;
    a.列表文本 = a.元素.mid(1).join(u',') + u',';
}

void BM_三十句千元素(benchmark::State& state) {
    清零();
    装入长度(脚本状态.数组U, 1000);
    const QString 脚本 = 三十句公式();
    for (auto _ : state) {
        清除计算状态();
        const QString 出 = 运行算式(脚本);
        if (计算状态.错误数 > 0) state.SkipWithError(计算状态.首个错误.toStdString().c_str());
        benchmark::DoNotOptimize(出);
    }
    清除计算状态();
    std::fprintf(stderr, "output: %s\n", 运行算式(脚本).toStdString().c_str());
}
BENCHMARK(BM_三十句千元素)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
