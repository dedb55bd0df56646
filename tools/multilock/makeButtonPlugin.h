#pragma once

class PLG_Interface;

/// The module's only exported function: a new Lock Camera tool, which passes into the caller's
/// ownership; null when there is no memory for it.
extern "C" __attribute__((visibility("default"))) PLG_Interface *makeButtonPlugin();
