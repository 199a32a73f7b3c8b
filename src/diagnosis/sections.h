#pragma once

namespace vantor {

class Report;

/// What a section finds out, in a process of its own that may hang or be ended by it. None asks the
/// user anything, starts a program or makes a file.
namespace sections {

void tellVersions(Report& report, int& argc, char** argv);
void tellStorage(Report& report, int& argc, char** argv);
void tellKeyring(Report& report, int& argc, char** argv);
void tellEngine(Report& report, int& argc, char** argv);
void tellDisplay(Report& report, int& argc, char** argv);
void tellLog(Report& report, int& argc, char** argv);

}  // namespace sections
}  // namespace vantor
