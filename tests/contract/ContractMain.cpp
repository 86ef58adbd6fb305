#include <cstdlib>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
   testing::InitGoogleTest(&argc, argv);
   setenv("CLASSPATH", CONTRACT_CLASS_PATH, 1);
   // A heap that is resident from the start, so that what grows later has leaked. Large values fit.
   setenv("TOVU1516_OPTION2", "-Xms128m", 1);
   setenv("TOVU1516_OPTION3", "-Xmx128m", 1);
   setenv("TOVU1516_OPTION4", "-XX:+AlwaysPreTouch", 1);
   return RUN_ALL_TESTS();
}
