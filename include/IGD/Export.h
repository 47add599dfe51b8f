#pragma once

#define IGD_EXPORT __attribute__((visibility("default")))
