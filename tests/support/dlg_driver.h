// The dialog driver lives with the input it answers dialogs with.
#include "user_input.h"
