// The calculator's whole compute procedure (normalise, evaluate, cut, round,
// lay out) on each of the 18 stored samples, and the typed-text road on
// random texts of up to 2000 characters (slowest case reported).
//
// Targets (Release): median under 50 µs for samples 1-12 and 17; under
// 50 ms for every random case.
#include "expression/evaluator.h"
#include "expression/normalise.h"
#include "expression/validate.h"
#include "shell/calculator.h"
#include "numeric/interaction.h"
#include "shell/state.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QStringList>
#include <algorithm>
#include <random>
#include <vector>

namespace {

// Message boxes are dropped (none of the samples shows one).
class 静默交互 : public 交互接口 {
public:
    void 告知(const QString&, const QString&) override {}
    bool 询问(const QString&, const QString&) override { return false; }
};
静默交互 静默;

int 示例单位(int n) {
    switch (n) {
    case 5: return 100;
    case 17: return 3;
    default: return 60;
    }
}

void BM_示例(benchmark::State& state) {
    安装交互(&静默);
    const int n = static_cast<int>(state.range(0));
    const QString 算式 = 示例算式(n);
    const 输出设置 设置{28, 示例单位(n)};
    计算器初始化();
    bool ok = true;
    for (auto _ : state) {
        const 计算显示 d = 计算器计算(算式, 设置);
        ok = ok && d.成功;
        benchmark::DoNotOptimize(d.结果);
    }
    if (!ok) state.SkipWithError("the sample failed");
}
BENCHMARK(BM_示例)->DenseRange(1, 18)->Unit(benchmark::kMicrosecond);

// The two halves apart: normalisation alone, and the evaluator alone on the
// normalised text.
void BM_规整(benchmark::State& state) {
    安装交互(&静默);
    const QString 算式 = 示例算式(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        清除计算状态();
        benchmark::DoNotOptimize(表达式规整(算式字符规整(算式)));
    }
    清除计算状态();
}
BENCHMARK(BM_规整)->DenseRange(1, 18)->Unit(benchmark::kMicrosecond);

void BM_求值(benchmark::State& state) {
    安装交互(&静默);
    const int n = static_cast<int>(state.range(0));
    计算器初始化();
    计算状态.角度单位 = 示例单位(n);
    清除计算状态();
    const QString 规整 = 表达式规整(算式字符规整(示例算式(n)));
    for (auto _ : state) {
        清除计算状态();
        benchmark::DoNotOptimize(表达式计算(规整));
    }
    if (计算状态.错误数 > 0) state.SkipWithError("the sample failed");
    清除计算状态();
}
BENCHMARK(BM_求值)->DenseRange(1, 18)->Unit(benchmark::kMicrosecond);

// Random texts as the robustness test draws them (pieces of what users
// type); each iteration runs every case once and reports the slowest.
std::vector<QString> 随机文本(int 个数) {
    const QStringList 零件 = {
        "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", ".", "+", "-", "*", "/", "\\", "^", "!", "%",
        "(", ")", "[", "]", "（", "）", "E", " ", "A", "R", "X", "SIN", "cos", "Lg", "ln", "sinh", "π", "ε",
        "０", "＋", "－", "×", "÷", "．", "一", "三", "零", "点", "加", "减", "乘", "除", "乘以", "除以", "余",
        "2.5", "1E+20", "0.001", "123456789", "^0.5", "^1.5", "!", "%",
    };
    std::vector<QString> r;
    std::mt19937 g(12345);
    std::uniform_int_distribution<int> 取(0, static_cast<int>(零件.size()) - 1);
    for (int i = 0; i < 个数; ++i) {
        const int 长 = i % 5 == 0 ? 2000 : std::uniform_int_distribution<int>(1, 400)(g);
        QString s;
        while (s.size() < 长) s += 零件[取(g)];
        r.push_back(s.left(长));
    }
    return r;
}

void BM_随机文本(benchmark::State& state) {
    安装交互(&静默);
    计算状态.角度单位 = 60;
    const auto 表 = 随机文本(200);
    qint64 最慢 = 0;
    std::vector<qint64> 各例;
    for (auto _ : state) {
        各例.clear();
        for (const auto& t : 表) {
            QElapsedTimer 表时;
            表时.start();
            清除计算状态();
            const QString 规整 = 表达式规整(算式字符规整(t));
            if (计算状态.错误数 == 0) {
                清除计算状态();
                benchmark::DoNotOptimize(表达式计算(规整));
            }
            清除计算状态();
            benchmark::DoNotOptimize(表达式计算(t));
            const qint64 ns = 表时.nsecsElapsed();
            各例.push_back(ns);
            最慢 = std::max(最慢, ns);
        }
    }
    std::sort(各例.begin(), 各例.end());
    state.counters["slowest_ms"] = static_cast<double>(最慢) / 1e6;
    state.counters["median_us"] = 各例.empty() ? 0 : static_cast<double>(各例[各例.size() / 2]) / 1e3;
}
BENCHMARK(BM_随机文本)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
