// What a figure cannot be read without: where, when and with what it was taken.
#pragma once

#include <string>
#include <vector>

std::string processor();

// Lines such as "compiler  g++ 12.2.0".
std::vector<std::string> machineLines();
