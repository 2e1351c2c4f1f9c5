// Speed of the Gauss-Krüger conversions and of one workbench run.
#include "geodesy/projection.h"
#include "geodesy/series.h"
#include "geodesy/workbench.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

struct 点 { double B, L; };

// Decimal degrees across China, within 1.5° of 117.
const std::vector<点>& 经纬度点() {
    static const std::vector<点> v = [] {
        std::mt19937_64 rng(1);
        std::uniform_real_distribution<double> b(18, 54), l(115.5, 118.5);
        std::vector<点> r(4096);
        for (auto& p : r) p = {b(rng), l(rng)};
        return r;
    }();
    return v;
}

const std::vector<点>& 公里网点() {
    static const std::vector<点> v = [] {
        设置椭球("BJ");
        std::vector<点> r = 经纬度点();
        for (auto& p : r) 度数转公里网(p.B, p.L, 117, 3);
        return r;
    }();
    return v;
}

// Packed degrees for the fixed-zone procedures.
const std::vector<点>& 度分秒点() {
    static const std::vector<点> v = [] {
        std::vector<点> r = 经纬度点();
        auto 包 = [](double d) {
            const double s = std::round(d * 3600 * 1000) / 1000;
            const double D = std::floor(s / 3600), M = std::floor((s - D * 3600) / 60);
            return D + M / 100 + (s - D * 3600 - M * 60) / 10000;
        };
        for (auto& p : r) p = {包(p.B), 包(p.L)};
        return r;
    }();
    return v;
}

void 正算_一般(benchmark::State& st) {
    设置椭球("BJ");
    const auto& v = 经纬度点();
    size_t i = 0;
    for (auto _ : st) {
        double B = v[i].B, L = v[i].L;
        benchmark::DoNotOptimize(度数转公里网(B, L, 117, 3));
        benchmark::DoNotOptimize(B + L);
        i = (i + 1) & 4095;
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(正算_一般);

void 反算_一般(benchmark::State& st) {
    设置椭球("BJ");
    const auto& v = 公里网点();
    size_t i = 0;
    for (auto _ : st) {
        double X = v[i].B, Y = v[i].L;
        benchmark::DoNotOptimize(公里网转度数(X, Y, 117, 3));
        benchmark::DoNotOptimize(X + Y);
        i = (i + 1) & 4095;
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(反算_一般);

void 正算_级数(benchmark::State& st) {
    设置椭球("BJ");
    const auto& v = 经纬度点();
    const 椭球记录 E = 坐标状态.EllipsoidRecord;
    size_t i = 0;
    for (auto _ : st) {
        double X, Y;
        高斯正算(E, v[i].B * 级数::每度弧度, (v[i].L - 117) * 级数::每度弧度, 39500000, X, Y);
        benchmark::DoNotOptimize(X + Y);
        i = (i + 1) & 4095;
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(正算_级数);

void 反算_级数(benchmark::State& st) {
    设置椭球("BJ");
    const auto& v = 公里网点();
    const 椭球记录 E = 坐标状态.EllipsoidRecord;
    size_t i = 0;
    for (auto _ : st) {
        double B, l;
        高斯反算(E, v[i].B, v[i].L - 39500000, B, l);
        benchmark::DoNotOptimize(B + l);
        i = (i + 1) & 4095;
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(反算_级数);

void 正算_三度带定带(benchmark::State& st) {
    const auto& v = 度分秒点();
    size_t i = 0;
    for (auto _ : st) {
        double B = v[i].B, L = v[i].L;
        benchmark::DoNotOptimize(经纬度转三度带(B, L, 117, QStringLiteral("BJ")));
        i = (i + 1) & 4095;
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(正算_三度带定带);

void 反算_三度带定带(benchmark::State& st) {
    const auto& v = 公里网点();
    size_t i = 0;
    for (auto _ : st) {
        double X = v[i].B, Y = v[i].L;
        benchmark::DoNotOptimize(三度带转经纬度(X, Y, QStringLiteral("BJ")));
        i = (i + 1) & 4095;
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(反算_三度带定带);

// One workbench run of 1000 named points, latitude/longitude to grid.
void 工作台_1000点(benchmark::State& st) {
    QString s;
    const auto& v = 度分秒点();
    for (int i = 0; i < 1000; ++i)
        s += QStringLiteral("P%1,%2,%3,12.5\n").arg(i).arg(v[i].L, 0, 'f', 7).arg(v[i].B, 0, 'f', 7);
    坐标转换设置 设;
    设.点数上限 = 0;
    for (auto _ : st) benchmark::DoNotOptimize(同系坐标转换(s, 设, QString()));
    st.SetItemsProcessed(st.iterations() * 1000);
}
BENCHMARK(工作台_1000点);

}  // namespace

BENCHMARK_MAIN();
