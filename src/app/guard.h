// The guard that every user command runs in.
#pragma once

#include "message_boxes.h"

#include <functional>

class QWidget;

namespace korvex {

/// Runs a command. An arithmetic fault, an index out of range or a lack of memory ends it with the run-time error box;
/// the data stay as the command left them. False when that happened.
bool runGuarded(MessageBoxes& boxes, QWidget* parent, const std::function<void()>& command);

}  // namespace korvex
