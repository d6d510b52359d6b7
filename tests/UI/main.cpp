#include <QByteArray>
#include <gmock/gmock.h>

// No test needs a display.
int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
