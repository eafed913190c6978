// program.h - the frame of an example's main(): failures become one line and an exit status.
#ifndef EXAMPLES_PROGRAM_H
#define EXAMPLES_PROGRAM_H

#include <string>

namespace examples
{

// The text with question marks for control characters: file names may hold line feeds and the like,
// and a message or a fact stays one line.
std::string printable(std::string text);

// Calls run(argc, argv) and returns the exit status: 0 done, 1 the files are at fault, 2 the
// command line is at fault. What went wrong is told on standard error in one line that begins with
// the program's name; a standard output that does not take what was printed counts as well.
int runProgram(const char* name, int argc, char** argv, void (*run)(int argc, char** argv));

} // namespace examples

#endif
