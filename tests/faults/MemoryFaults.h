// Want of memory on demand, for the library and the program alike.
#pragma once

// Lets the n-th allocation from now on fail, n counting from 1 and the Java VM's own left out; 0: none.
void failAllocation(int n);

// Whether the last one that was to fail has.
bool allocationHasFailed();
