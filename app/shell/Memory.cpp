#include "app/shell/Memory.h"

#include <cstdlib> // says which C library it is

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace zelta::Memory {

void useOneHeap()
{
#ifdef __GLIBC__
    mallopt(M_ARENA_MAX, 1);
#endif
}

void giveBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace zelta::Memory
