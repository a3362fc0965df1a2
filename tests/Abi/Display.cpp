#include "Display.h"

#include <cstdlib>
#include <iostream>
#include <string>

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace VantrelProof {

namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

std::string complaint;

}

bool hasDisplay() { return !variable("DISPLAY").empty() || !variable("WAYLAND_DISPLAY").empty(); }

bool canOpenDisplay() {
    glfwSetErrorCallback([](int, const char* description) { complaint = description; });
    const bool works = glfwInit();
    glfwSetErrorCallback(nullptr);
    if(works)
        glfwTerminate();
    else
        std::cerr << "vantrel-proof: cannot open a window on display \"" << variable("DISPLAY") << "\": " << complaint
                  << "\n";
    return works;
}

}
