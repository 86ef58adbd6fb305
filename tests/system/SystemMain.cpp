#include <gtest/gtest.h>
#include <stdlib.h>

// Finds the core by itself, so that it can also be run by hand.
int main(int argc, char* argv[])
{
   testing::InitGoogleTest(&argc, argv);
   setenv("CLASSPATH", SYSTEM_TESTS_CORE, 0);
   return RUN_ALL_TESTS();
}
