#include "bench/Ratio.h"
#include "core/Decimal.h"

#include <benchmark/benchmark.h>
#include <boost/multiprecision/cpp_dec_float.hpp>

#define DECIMAL_CALL_BY_REFERENCE 0
#define DECIMAL_GLOBAL_ROUNDING 0
#define DECIMAL_GLOBAL_EXCEPTION_FLAGS 0
extern "C" {
#include <bid_conf.h>
#include <bid_functions.h>
}

#include <algorithm>
#include <random>
#include <string>
#include <vector>

// One operation of Decimal beside the same one of two well-known libraries, on the same operands: 2 to 26
// digits, some of them behind the point.

namespace zelta::bench {
namespace {

using Boost
    = boost::multiprecision::number<boost::multiprecision::cpp_dec_float<38>, boost::multiprecision::et_off>;

constexpr unsigned roundHalfAway = 4;
constexpr std::size_t operandCount = 1024; // a power of two; all fit the cache

/// The same numbers in each of the three types.
struct Operands
{
    std::vector<Decimal> ours;
    std::vector<Boost> boost;
    std::vector<BID_UINT128> intel;
};

const Operands& operands()
{
    static const Operands all = [] {
        std::mt19937 random(20'240'229);
        const auto any
            = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
        Operands made;
        for (std::size_t i = 0; i < 2 * operandCount; ++i) {
            std::string text = any(0, 3) == 0 ? "-" : "";
            const int digits = any(2, 26);
            const int places = any(0, std::min(digits - 1, 10));
            for (int d = 0; d < digits; ++d) {
                if (d == digits - places)
                    text += '.';
                text += static_cast<char>('0' + any(d == 0 ? 1 : 0, 9));
            }
            made.ours.push_back(Decimal::fromText(text).value());
            made.boost.emplace_back(text);
            unsigned flags = 0;
            made.intel.push_back(__bid128_from_string(text.data(), roundHalfAway, &flags));
        }
        return made;
    }();
    return all;
}

template <class Number, class Operation>
void measure(benchmark::State& state, const std::vector<Number>& numbers, Operation operation)
{
    std::size_t i = 0;
    for (auto _ : state) {
        auto result = operation(numbers[i], numbers[i + operandCount]);
        benchmark::DoNotOptimize(result);
        i = (i + 1) % operandCount;
    }
}

template <class Operation> void ours(benchmark::State& state, Operation operation)
{
    measure(state, operands().ours, operation);
}

template <class Operation> void boost(benchmark::State& state, Operation operation)
{
    measure(state, operands().boost, operation);
}

template <class Function> void intel(benchmark::State& state, Function function)
{
    unsigned flags = 0;
    measure(state, operands().intel,
            [&](BID_UINT128 a, BID_UINT128 b) { return function(a, b, roundHalfAway, &flags); });
}

const auto add = [](const auto& a, const auto& b) { return a + b; };
const auto subtract = [](const auto& a, const auto& b) { return a - b; };
const auto multiply = [](const auto& a, const auto& b) { return a * b; };
const auto divide = [](const auto& a, const auto& b) { return a / b; };

BENCHMARK_CAPTURE(ours, add, add)->Name("decimal-add/ours");
BENCHMARK_CAPTURE(boost, add, add)->Name("decimal-add/boost");
BENCHMARK_CAPTURE(intel, add, __bid128_add)->Name("decimal-add/intel");
BENCHMARK_CAPTURE(ours, subtract, subtract)->Name("decimal-subtract/ours");
BENCHMARK_CAPTURE(boost, subtract, subtract)->Name("decimal-subtract/boost");
BENCHMARK_CAPTURE(intel, subtract, __bid128_sub)->Name("decimal-subtract/intel");
BENCHMARK_CAPTURE(ours, multiply, multiply)->Name("decimal-multiply/ours");
BENCHMARK_CAPTURE(boost, multiply, multiply)->Name("decimal-multiply/boost");
BENCHMARK_CAPTURE(intel, multiply, __bid128_mul)->Name("decimal-multiply/intel");
BENCHMARK_CAPTURE(ours, divide, divide)->Name("decimal-divide/ours");
BENCHMARK_CAPTURE(boost, divide, divide)->Name("decimal-divide/boost");
BENCHMARK_CAPTURE(intel, divide, __bid128_div)->Name("decimal-divide/intel");

const Budget addBudget("decimal-add", 1.0);
const Budget subtractBudget("decimal-subtract", 1.0);
const Budget multiplyBudget("decimal-multiply", 1.0);
const Budget divideBudget("decimal-divide", 1.0);

} // namespace
} // namespace zelta::bench
