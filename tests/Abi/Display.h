#pragma once

namespace VantrelProof {

// Whether the environment names a display server, reachable or not.
bool hasDisplay();

// Whether windows can be opened there. Says on the error output why not.
bool canOpenDisplay();

}
