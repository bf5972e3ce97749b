#include "core/Calculator.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Each byte is a key; whatever is pressed, the display shows something and the tape stays short.

namespace {

using namespace zelta;
using Operation = Calculator::Operation;

void require(bool promise)
{
    if (!promise)
        std::abort();
}

void press(Calculator& calculator, std::uint8_t key)
{
    switch (key) {
    case '.':
        return calculator.decimalPoint();
    case '+':
        return calculator.operation(Operation::add);
    case '-':
        return calculator.operation(Operation::subtract);
    case '*':
        return calculator.operation(Operation::multiply);
    case '/':
        return calculator.operation(Operation::divide);
    case '=':
        return calculator.equals();
    case '%':
        return calculator.percent();
    case 'n':
        return calculator.toggleSign();
    case '<':
        return calculator.backspace();
    case 'e':
        return calculator.clearEntry();
    case 'c':
        return calculator.clearAll();
    case 't':
        return calculator.clearTape();
    case 'l':
        return calculator.tape().empty() ? calculator.load(7)
                                         : calculator.load(calculator.tape().back().result);
    default:
        return calculator.digit(key - '0'); // also what is no digit
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Calculator calculator;
    int lastId = 0;
    for (std::size_t i = 0; i < size; ++i) {
        press(calculator, data[i]);
        require(!calculator.display().empty());
        require(calculator.tape().size() <= Calculator::maxTapeEntries);
        require(!calculator.hasError() || calculator.expression().empty());
        if (!calculator.tape().empty()) {
            require(calculator.tape().front().id >= lastId);
            lastId = calculator.tape().front().id;
            require(!calculator.tape().front().resultText().empty());
        }
    }
    return 0;
}
