/// The version of the library, written here and nowhere else.
///
/// Build files read the three numbers; the namespace, the names of functions in exceptions and the exported
/// symbols follow from them. Each minor version has a namespace of its own, so that programs and modules
/// built for different versions can live in one process. Source code uses the short name `orva`.
///
///     ORVA_NAMESPACE                 =>  ORVA_<major>_<minor>
///     ORVA_QUALIFIED("system::f")    =>  "ORVA_<major>_<minor>::system::f"
#pragma once

#define ORVA_VERSION_MAJOR 2
#define ORVA_VERSION_MINOR 18
#define ORVA_VERSION_PATCH 0

// Macros, since only they can make names and literals of numbers. The numbers expand one step before they are
// joined.
#define ORVA_JOIN_VERSION(major, minor) ORVA_##major##_##minor
#define ORVA_NAMESPACE_OF(major, minor) ORVA_JOIN_VERSION(major, minor)
#define ORVA_TEXT_OF(name) #name
#define ORVA_TEXT_OF_EXPANDED(name) ORVA_TEXT_OF(name)

/// The namespace of every name of the library.
#define ORVA_NAMESPACE ORVA_NAMESPACE_OF(ORVA_VERSION_MAJOR, ORVA_VERSION_MINOR)

/// The literal `name` with the namespace in front.
#define ORVA_QUALIFIED(name) ORVA_TEXT_OF_EXPANDED(ORVA_NAMESPACE) "::" name

namespace ORVA_NAMESPACE {}
namespace orva = ORVA_NAMESPACE;
