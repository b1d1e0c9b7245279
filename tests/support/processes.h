#pragma once

#include <functional>
#include <vector>

namespace zel::test {

/// Hands a number to the test that waits for the processes.
using Report = std::function<void(int)>;

/// Runs the work in as many processes at once, each as a clerk's own program. Gives all numbers that they reported; a
/// process that ends with an exception or a signal fails the test.
std::vector<int> inProcesses(int count, const std::function<void(int process, const Report& report)>& work);

} // namespace zel::test
