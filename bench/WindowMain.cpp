#include "bench/Ratio.h"

#include <QApplication>

int main(int argc, char** argv)
{
    int count = 1; // the other arguments are the benchmark library's
    const QApplication application(count, argv);
    return zelta::bench::run(argc, argv);
}
