// The user's hands: what could be taken hold of in the dialog on top, and taking a step there.
#pragma once

#include "platform/user/actions.h"
#include "tests/random/steps.h"

namespace random_use {

// A step that the user could think of, each as likely as users take it.
Step DrawStep(Random& random, HWND top);

platform::user::Outcome Act(const Step& step, HWND top);

// The control by which the rules know a step: see changes.h.
int ControlOf(const Step& step, HWND top);

// Lines of a script. boxes and files: how many of each the step has brought up.
std::string ScriptOf(const Step& step, int boxes, int files);

int TemplateOf(HWND dialog);

}  // namespace random_use
