#pragma once

#include "app/shell/MainWindow.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QTest>

namespace zelta::test {

/// The whole window, shown and in front.
struct WindowTest : testing::Test
{
    TestModel test;
    MainWindow window {test.model};

    void SetUp() override
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
};

} // namespace zelta::test
