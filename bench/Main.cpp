#include "bench/Ratio.h"

int main(int argc, char** argv)
{
    return zelta::bench::run(argc, argv);
}
