#pragma once

class PLG_Interface;

/// The only function that a module exports: a new tool, which passes into the caller's ownership;
/// null when there is no memory for it. Each module defines its own. GUI thread.
extern "C" __attribute__((visibility("default"))) PLG_Interface *makeButtonPlugin();
