#include <windows.h>

#include "shell/application.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int showCommand) {
    return RunApplication(instance, commandLine, showCommand);
}
