// Starts Qt when it is first needed: on the user's screen for windows, without any screen for pictures
// and text extents.
#pragma once

namespace desktop {

bool HasDisplay();         // whether there is a screen to open windows on
void EnsureApplication();  // Qt on the screen if one is there and WantScreen was called, else without
void WantScreen();         // windows are to be shown; call before Qt starts

}  // namespace desktop
