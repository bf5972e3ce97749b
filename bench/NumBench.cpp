#include "bench/Ratio.h"
#include "core/Num.h"

#include <benchmark/benchmark.h>
#include <unicode/decimfmt.h>
#include <unicode/numberformatter.h>
#include <unicode/unistr.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Reading and printing numbers beside ICU's parser and formatter, each with its own usual text type.

namespace zelta::bench {
namespace {

constexpr std::array<std::string_view, 12> texts {
    "0",         "12",          "-5",         "1,234.50",  "1234567.891", "0.6666666667",
    "99,999.99", "-0.00012345", "31,536,000", "3.1415926", "-273.15",     "123,456,789,012.25"};

void parseOurs(benchmark::State& state)
{
    std::size_t i = 0;
    for (auto _ : state) {
        auto value = Num::parse(texts[i]);
        benchmark::DoNotOptimize(value);
        i = (i + 1) % texts.size();
    }
}

void parseIcu(benchmark::State& state)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icu::Locale("en_US_POSIX"), status));
    std::vector<icu::UnicodeString> inputs;
    inputs.reserve(texts.size());
    for (const std::string_view text : texts)
        inputs.push_back(icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())}));
    std::size_t i = 0;
    for (auto _ : state) {
        icu::Formattable value;
        format->parse(inputs[i], value, status);
        benchmark::DoNotOptimize(value);
        i = (i + 1) % texts.size();
    }
}

std::vector<Decimal> values()
{
    std::vector<Decimal> all;
    all.reserve(texts.size());
    for (const std::string_view text : texts)
        all.push_back(Num::parse(text).value());
    return all;
}

void stringOurs(benchmark::State& state)
{
    const std::vector<Decimal> numbers = values();
    std::size_t i = 0;
    for (auto _ : state) {
        auto text = Num::string(numbers[i], 10, true);
        benchmark::DoNotOptimize(text);
        i = (i + 1) % numbers.size();
    }
}

void stringIcu(benchmark::State& state)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto formatter = icu::number::NumberFormatter::withLocale(icu::Locale("en_US"))
                               .precision(icu::number::Precision::maxFraction(10))
                               .roundingMode(UNUM_ROUND_HALFUP);
    std::vector<std::string> numbers;
    numbers.reserve(texts.size());
    for (const Decimal& value : values())
        numbers.push_back(value.text());
    std::size_t i = 0;
    for (auto _ : state) {
        std::string text;
        formatter.formatDecimal(numbers[i], status).toString(status).toUTF8String(text);
        benchmark::DoNotOptimize(text);
        i = (i + 1) % numbers.size();
    }
}

BENCHMARK(parseOurs)->Name("num-parse/ours");
BENCHMARK(parseIcu)->Name("num-parse/icu");
BENCHMARK(stringOurs)->Name("num-string/ours");
BENCHMARK(stringIcu)->Name("num-string/icu");

const Budget parseBudget("num-parse", 0.2);
const Budget stringBudget("num-string", 0.2);

} // namespace
} // namespace zelta::bench
