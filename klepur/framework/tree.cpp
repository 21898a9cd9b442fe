#include <klepur/framework/tree.h>

template class Tree<CfSection>;
