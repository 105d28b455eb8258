// Windows metafiles, WMF and EMF.
#pragma once

#include "image/completeness.h"

namespace kelvane {

/// True for enhanced metafiles, and for metafiles with or without the header of placeable ones.
bool is_metafile(Bytes file_bytes);

/// Whether all records up to the end mark are there.
Completeness metafile_completeness(Bytes file_bytes);

} // namespace kelvane
