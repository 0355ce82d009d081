#pragma once
// Why a control has its value: tool tip and context menu.

#include "velmora/adapters/qt/control_view.h"

class QHelpEvent;
class QMenu;

namespace velmora::qt {

/// Shows the control's warning and its explanation, or its plain tool tip, as the tool tip of `widget`. False when the
/// control has neither a warning nor an explanation: the widget then shows its own tool tip.
bool showExplanation(ViewHost& host, const screen::Control& control, const QHelpEvent& event, QWidget& widget);

/// Adds the question why the control has its value to its context menu, if somebody answers it.
void addQuestion(ViewHost& host, screen::Control& control, QMenu& menu);

}  // namespace velmora::qt
