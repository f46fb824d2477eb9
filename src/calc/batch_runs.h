// The calculations over all marked sources.
#pragma once

#include "stack_gas.h"

#include <string>
#include <vector>

namespace korvex {

class ProgressListener;
class SourceRows;
class SourceSet;

/// What a run computes from the other quantities, in the order in which the user chooses.
enum class StackGasQuantity { Vs, d, w0 };

/// Computes the quantity for every marked point source in row order; other types are passed over without a word.
/// p: the pressure of this run in Pa, which only Vs uses. Appends to the log, in Czech, a line for each source whose
/// divisor is zero (it stays unchanged) and a closing one. Progress: the row's index, of the number of rows and one.
/// The set's modified flag is left alone. A fault of the arithmetic ends the run with an ArithmeticFault that names the
/// source; those before it keep their new values and the log its lines.
void runStackGas(SourceSet& set, const SourceRows& rows, StackGasQuantity quantity, float p, const StackGas& stackGas,
    std::vector<std::string>& log, ProgressListener& listener);

/// Sets X and Y of every marked line source, in row order, to the midpoint of its segment; other types are passed over
/// without a word. Faults and the modified flag as above.
void runMidpoints(SourceSet& set, const SourceRows& rows);

}  // namespace korvex
