#include <cstdlib>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
   testing::InitGoogleTest(&argc, argv);
   setenv("CLASSPATH", CONTRACT_CLASS_PATH, 1);
   // Small enough that what is held on to is soon missed, large enough for the large values.
   setenv("TOVU1516_OPTION2", "-Xmx192m", 1);
   return RUN_ALL_TESTS();
}
