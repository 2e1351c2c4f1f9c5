// The numeric core in one include: the decimal, the number value and its
// plain arithmetic, the guarded operations, rounding and number text, and
// the elementary functions.
#pragma once

#include "numeric/circular.h"
#include "numeric/decimal.h"
#include "numeric/guarded.h"
#include "numeric/powers.h"
#include "numeric/rounding.h"
#include "numeric/statistics.h"
#include "numeric/text.h"
#include "numeric/value.h"
