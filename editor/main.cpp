#include "Application/Application.h"

int main(int argc, char** argv) { return VantrelEngine::runEditor(argc, argv); }
