#pragma once

namespace VantrelEngine {

// What is done with the steps of a journal that a project's file lacks: the user is asked, they are brought back, or the
// journal is kept under another name.
enum class Recover { Ask, BringBack, PutAside };

} // namespace VantrelEngine
