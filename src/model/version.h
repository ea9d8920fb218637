// The program's version, VELMORA_VERSION, as the build's project(VERSION ...)
// gives it: a string literal, so texts such as the print footer join it in.
#pragma once

#ifndef VELMORA_VERSION
#error "VELMORA_VERSION comes from CMake's project(VERSION ...)"
#endif
