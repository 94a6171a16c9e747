#include <QApplication>

#include <gtest/gtest.h>

#if defined(__SANITIZE_ADDRESS__)
// Drivers stay mapped, so that the leak check at the end can name their functions.
extern "C" int dlclose(void*) { return 0; }
#endif

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication const application(argc, argv);
    return RUN_ALL_TESTS();
}
