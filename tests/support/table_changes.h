// Compares the texts of table files.

#ifndef TESTS_TABLE_CHANGES_H
#define TESTS_TABLE_CHANGES_H

#include <string>
#include <vector>

/// The lines in which a table file differs from an older one, as they are now and in the order of
/// the file, each behind the path of its group: "plot_style/3/screen=50". Everything but those
/// lines is the same, byte for byte; fails the test when lines came or went.
std::vector<std::string> tableChanges(const std::string& before, const std::string& after);

#endif
