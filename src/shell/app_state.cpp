#include "shell/app_state.h"

AppState g_app = {};
