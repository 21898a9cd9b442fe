// Internal: everything that a twin's source file needs to instantiate ConfigFile once.
#ifndef KLEPUR_CONFIG_CONFIG_FILE_IMPL_H
#define KLEPUR_CONFIG_CONFIG_FILE_IMPL_H

#include <klepur/config/adding_impl.h>
#include <klepur/config/changing_impl.h>
#include <klepur/config/conversion_impl.h>
#include <klepur/config/lifecycle_impl.h>
#include <klepur/config/navigation_impl.h>
#include <klepur/config/removing_impl.h>
#include <klepur/config/subnet_query_impl.h>

#endif
