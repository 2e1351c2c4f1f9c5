// Start-up pieces: the data layer's reads and writes on the shipped menu
// database, the whole entry procedure, and building the two screens.
// (bench/startup.sh measures the real process: start to menu, peak memory.)
#include "library/access.h"
#include "tests/support/recording.h"
#include "shell/screens/common.h"
#include "shell/screens/form1.h"
#include "shell/screens/form2.h"
#include "shell/startup.h"
#include "shell/state.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

QTemporaryDir* 临时;

启动环境 环境() {
    return {临时->filePath(QStringLiteral("bin")), 临时->filePath(QStringLiteral("user")),
            临时->filePath(QStringLiteral("share")), 临时->filePath(QStringLiteral("lock"))};
}

void BM_读软件信息(benchmark::State& s) {
    for (auto _ : s) benchmark::DoNotOptimize(读软件信息());
}
BENCHMARK(BM_读软件信息)->Unit(benchmark::kMicrosecond);

void BM_读常规表(benchmark::State& s) {
    for (auto _ : s) benchmark::DoNotOptimize(读常规表().size());
}
BENCHMARK(BM_读常规表)->Unit(benchmark::kMicrosecond);

void BM_启动程序(benchmark::State& s) {
    for (auto _ : s) {
        释放单实例锁();
        benchmark::DoNotOptimize(启动程序(环境()));
    }
}
BENCHMARK(BM_启动程序)->Unit(benchmark::kMicrosecond);

void BM_主菜单(benchmark::State& s) {
    for (auto _ : s) {
        Form2 菜单;
        benchmark::DoNotOptimize(&菜单);
    }
}
BENCHMARK(BM_主菜单)->Unit(benchmark::kMillisecond);

void BM_计算器屏(benchmark::State& s) {
    for (auto _ : s) {
        Form1 屏;
        benchmark::DoNotOptimize(&屏);
    }
}
BENCHMARK(BM_计算器屏)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qgetenv("QT_QPA_PLATFORM").isEmpty()) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir d;
    临时 = &d;
    QDir().mkpath(d.filePath(QStringLiteral("bin")));
    if (!由脚本建库(QStringLiteral(ORVANE_SOURCE_DIR "/data/QdpxMenu.sql"),
                    d.filePath(QStringLiteral("bin/QdpxMenu.db"))))
        return 1;
    交互记录作用域 静默;
    if (启动程序(环境()) != 启动结果::已启动) return 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    释放单实例锁();
    return 0;
}
