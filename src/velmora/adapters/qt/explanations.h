#pragma once
// Why a control has its value: tool tip and context menu.

#include "velmora/adapters/qt/control_view.h"

class QContextMenuEvent;
class QHelpEvent;
class QLineEdit;

namespace velmora::qt {

/// Shows the control's warning and its explanation, or its plain tool tip, as the tool tip of `widget`. False when the
/// control has neither a warning nor an explanation: the widget then shows its own tool tip.
bool showExplanation(ViewHost& host, const screen::Control& control, const QHelpEvent& event, QWidget& widget);

/// Opens the field's context menu with the question why it has its value. False when nobody answers that question.
bool openMenuWithQuestion(ViewHost& host, screen::Control& control, const QContextMenuEvent& event, QLineEdit& edit);

}  // namespace velmora::qt
