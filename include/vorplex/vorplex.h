#pragma once

// Vorplex as a library: finds circles, squares, rectangles and ellipses in pictures, removes those
// that overlap better ones, fits them to the edges and measures them.
//
// Everything is in the namespace vorplex. Functions take plain records and return new ones; they
// keep nothing between calls, read no settings, print nothing and never end the process. Errors are
// exceptions (error.h). Any number of threads may call any functions at once, also with the same
// pictures, kernels and lists, as long as nobody changes those meanwhile.
//
// Rows and columns count from 0 at the top left, and pixel centres have whole coordinates. Lengths
// are in pixels unless a scale is given. Angles are in degrees: at 0, d1 lies along the columns
// (x), and positive angles turn clockwise as seen on the screen. Text is in UTF-8.

#include "vorplex/detection.h"  // IWYU pragma: export
#include "vorplex/draw.h"       // IWYU pragma: export
#include "vorplex/error.h"      // IWYU pragma: export
#include "vorplex/filter.h"     // IWYU pragma: export
#include "vorplex/image.h"      // IWYU pragma: export
#include "vorplex/kernels.h"    // IWYU pragma: export
#include "vorplex/measure.h"    // IWYU pragma: export
#include "vorplex/picture.h"    // IWYU pragma: export
#include "vorplex/refine.h"     // IWYU pragma: export
#include "vorplex/search.h"     // IWYU pragma: export
#include "vorplex/suggest.h"    // IWYU pragma: export
