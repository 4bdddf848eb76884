#pragma once

namespace Conformance {

class KeyboardRun;
class Ruling;

/// The checks that have a function, in the files of their groups.
namespace KeyboardCheckFunctions {

void windowLoader(KeyboardRun &run, Ruling &ruling);
void windowSame(KeyboardRun &run, Ruling &ruling);
void windowSeparate(KeyboardRun &run, Ruling &ruling);
void windowBefore(KeyboardRun &run, Ruling &ruling);
void windowReady(KeyboardRun &run, Ruling &ruling);
void windowNull(KeyboardRun &run, Ruling &ruling);
void windowZ(KeyboardRun &run, Ruling &ruling);
void windowAgain(KeyboardRun &run, Ruling &ruling);
void windowDeleted(KeyboardRun &run, Ruling &ruling);

void popupFocus(KeyboardRun &run, Ruling &ruling);
void popupStays(KeyboardRun &run, Ruling &ruling);
void popupShown(KeyboardRun &run, Ruling &ruling);
void popupOnce(KeyboardRun &run, Ruling &ruling);
void popupGeometry(KeyboardRun &run, Ruling &ruling);
void popupHidden(KeyboardRun &run, Ruling &ruling);
void popupBeside(KeyboardRun &run, Ruling &ruling);
void popupBelow(KeyboardRun &run, Ruling &ruling);
void popupAbove(KeyboardRun &run, Ruling &ruling);
void popupPlace(KeyboardRun &run, Ruling &ruling);

void layoutAddress(KeyboardRun &run, Ruling &ruling);
void layoutDigits(KeyboardRun &run, Ruling &ruling);
void layoutFull(KeyboardRun &run, Ruling &ruling);
void layoutHeight(KeyboardRun &run, Ruling &ruling);
void layoutUnknown(KeyboardRun &run, Ruling &ruling);

void keyEvents(KeyboardRun &run, Ruling &ruling);
void keyReturn(KeyboardRun &run, Ruling &ruling);
void keyHide(KeyboardRun &run, Ruling &ruling);
void keyBackspace(KeyboardRun &run, Ruling &ruling);
void keyRepeat(KeyboardRun &run, Ruling &ruling);
void keyFocus(KeyboardRun &run, Ruling &ruling);
void keyTarget(KeyboardRun &run, Ruling &ruling);
void keyMidst(KeyboardRun &run, Ruling &ruling);
void keyMouse(KeyboardRun &run, Ruling &ruling);

} // namespace KeyboardCheckFunctions

} // namespace Conformance
