// Throughput of the 96-bit scaled decimal against GCC's decimal128 (BID,
// software) on the same operands: a fixed pseudo-random mix of the numbers
// a calculator sees (short typed values at scales 0..6, long quotients at
// scale 28, large integers), plus the text conversions.
#include "numeric/decimal.h"

#include <benchmark/benchmark.h>
#include <decimal/decimal>

#include <random>
#include <vector>

namespace {

constexpr int kCount = 1024;   // operand pairs, cycled

struct Operands {
    std::vector<Decimal96> a, b;
    std::vector<std::decimal::decimal128> da, db;
    std::vector<QString> text;
};

// The decimal128 of the same value: mantissa split at 10^19 so that both
// halves are exact 64-bit coefficients.
std::decimal::decimal128 toDecimal128(const Decimal96& d) {
    unsigned __int128 m = (static_cast<unsigned __int128>(d.hi()) << 64) | d.lo64();
    const unsigned long long tenTo19 = 10000000000000000000ull;
    unsigned long long hi = static_cast<unsigned long long>(m / tenTo19);
    unsigned long long lo = static_cast<unsigned long long>(m % tenTo19);
    std::decimal::decimal128 r = std::decimal::make_decimal128(hi, 19 - d.scale()) +
                                 std::decimal::make_decimal128(lo, -d.scale());
    return d.negative() ? -r : r;
}

Decimal96 randomOperand(std::mt19937_64& rng, bool divisor) {
    Decimal96 d;
    int kind = static_cast<int>(rng() % 10);
    if (kind < 6) {
        // Typed numbers: up to 12 digits, scale 0..6.
        unsigned long long m = rng() % 1000000000000ull + (divisor ? 1 : 0);
        d = Decimal96::fromParts64(m, 0, rng() & 1, static_cast<int>(rng() % 7));
    } else if (kind < 8) {
        // Results of earlier divisions: 28 significant digits.
        Decimal96 x = Decimal96::fromInt64(static_cast<long long>(rng() % 997 + 1));
        Decimal96 y = Decimal96::fromInt64(static_cast<long long>(rng() % 89 + 3));
        Decimal96::div(x, y, d);
    } else if (kind < 9) {
        // Large integers, up to 18 digits.
        d = Decimal96::fromParts64(rng() % 1000000000000000000ull + 1, 0, rng() & 1, 0);
    } else {
        // Long fractions from the 15-digit double rule.
        Decimal96::fromDouble(static_cast<double>(rng() % 100000 + 1) / 7.0, d);
    }
    return d;
}

const Operands& operands() {
    static const Operands ops = [] {
        Operands o;
        std::mt19937_64 rng(12345);
        for (int i = 0; i < kCount; ++i) {
            o.a.push_back(randomOperand(rng, false));
            o.b.push_back(randomOperand(rng, true));
            o.da.push_back(toDecimal128(o.a.back()));
            o.db.push_back(toDecimal128(o.b.back()));
            o.text.push_back(o.a.back().toText());
        }
        return o;
    }();
    return ops;
}

template <Decimal96::Status (*Op)(const Decimal96&, const Decimal96&, Decimal96&)>
void decimal96(benchmark::State& state) {
    const Operands& o = operands();
    for (auto _ : state) {
        for (int i = 0; i < kCount; ++i) {
            Decimal96 r;
            auto s = Op(o.a[i], o.b[i], r);
            benchmark::DoNotOptimize(s);
            benchmark::DoNotOptimize(r);
        }
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

template <typename F>
void decimal128(benchmark::State& state, F op) {
    const Operands& o = operands();
    for (auto _ : state) {
        for (int i = 0; i < kCount; ++i) {
            std::decimal::decimal128 r = op(o.da[i], o.db[i]);
            benchmark::DoNotOptimize(r);
        }
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

void Decimal96_Add(benchmark::State& s) { decimal96<&Decimal96::add>(s); }
void Decimal96_Mul(benchmark::State& s) { decimal96<&Decimal96::mul>(s); }
void Decimal96_Div(benchmark::State& s) { decimal96<&Decimal96::div>(s); }
void Decimal128_Add(benchmark::State& s) { decimal128(s, [](auto x, auto y) { return x + y; }); }
void Decimal128_Mul(benchmark::State& s) { decimal128(s, [](auto x, auto y) { return x * y; }); }
void Decimal128_Div(benchmark::State& s) { decimal128(s, [](auto x, auto y) { return x / y; }); }

void Decimal96_FromText(benchmark::State& state) {
    const Operands& o = operands();
    for (auto _ : state) {
        for (int i = 0; i < kCount; ++i) {
            Decimal96 r;
            auto s = Decimal96::fromText(o.text[i], r);
            benchmark::DoNotOptimize(s);
            benchmark::DoNotOptimize(r);
        }
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

void Decimal96_ToText(benchmark::State& state) {
    const Operands& o = operands();
    for (auto _ : state) {
        for (int i = 0; i < kCount; ++i) {
            QString t = o.a[i].toText();
            benchmark::DoNotOptimize(t);
        }
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

void Decimal96_Compare(benchmark::State& state) {
    const Operands& o = operands();
    for (auto _ : state) {
        for (int i = 0; i < kCount; ++i) {
            int c = Decimal96::compare(o.a[i], o.b[i]);
            benchmark::DoNotOptimize(c);
        }
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

void Decimal96_ToDouble(benchmark::State& state) {
    const Operands& o = operands();
    for (auto _ : state) {
        for (int i = 0; i < kCount; ++i) {
            double d = o.a[i].toDouble();
            benchmark::DoNotOptimize(d);
        }
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

}  // namespace

BENCHMARK(Decimal96_Add);
BENCHMARK(Decimal128_Add);
BENCHMARK(Decimal96_Mul);
BENCHMARK(Decimal128_Mul);
BENCHMARK(Decimal96_Div);
BENCHMARK(Decimal128_Div);
BENCHMARK(Decimal96_Compare);
BENCHMARK(Decimal96_ToDouble);
BENCHMARK(Decimal96_FromText);
BENCHMARK(Decimal96_ToText);

BENCHMARK_MAIN();
