// SPDX-License-Identifier: MIT
#include "input/events.h"

#include "display/cursor.h"
#include "display/scene.h"
#include "display/view.h"
#include "input/input_services.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace kez {
namespace {

/// The client of all kinds; writes down what it hears and reads the records.
class Client : public Service {
public:
    List& registry() override { return none; }

    void serviceFired(Service& service) override
    {
        if (dynamic_cast<KeyService*>(&service) != nullptr)
            heard += keyDown ? "down " : keyChar ? "char " : "up ";
        else if (dynamic_cast<ClickService*>(&service) != nullptr)
            heard += "click " + std::string(pickedTag) + std::to_string(pickedIndex) + " ";
        else
            heard += mouseDown ? "press " : mouseMove ? "move " : "release ";
        if (reaction)
            reaction(service);
    }

    std::string take() { return std::exchange(heard, {}); }

    static inline List none;
    std::string heard;
    std::function<void(Service&)> reaction;
};

class EventsTest : public testing::Test {
protected:
    EventsTest()
    {
        for (Service* service : { static_cast<Service*>(&mouse), static_cast<Service*>(&click),
                 static_cast<Service*>(&key) }) {
            service->setClient(&client);
            service->attach();
        }
        button.tag = "names";
        button.index = 4;
        view.add(button);
        view.attach();
    }

    class Button : public Graphic {
    public:
        Button()
            : Graphic({ .x = 100, .y = 100, .width = 20, .height = 20 }, true, black)
        {
        }
    };

    Client client;
    MouseService mouse;
    ClickService click;
    KeyService key;
    View view { 0, 0, 0, 0, 0, true, true };
    Button button;
};

TEST_F(EventsTest, aPressClicksTheItemFirst)
{
    mouseEvent(100, 100, MouseEvent::Press);
    EXPECT_EQ(pickedItem, &button);
    mouseEvent(101, 100, MouseEvent::Move);
    mouseEvent(101, 100, MouseEvent::Release);
    EXPECT_EQ(client.take(), "click names4 press move release ");
    EXPECT_EQ(mouseX, 101);
    EXPECT_EQ(mouseY, 100);
}

TEST_F(EventsTest, aPressBesideEveryItemIsNoClick)
{
    mouseEvent(0, 0, MouseEvent::Press);
    EXPECT_EQ(client.take(), "press ");
    EXPECT_EQ(pickedItem, nullptr);
}

TEST_F(EventsTest, aHandledClickReachesNoMouseService)
{
    client.reaction = [](Service&) { stopDispatch(); };
    mouseEvent(100, 100, MouseEvent::Press);
    EXPECT_EQ(client.take(), "click names4 ");
    mouseEvent(100, 100, MouseEvent::Release);
    EXPECT_EQ(client.take(), "release ");
}

TEST_F(EventsTest, theCursorTakesTheEarlierPosition)
{
    mouseEvent(5, 6, MouseEvent::Move);
    mouseEvent(7, 8, MouseEvent::Move);
    EXPECT_EQ(cursorPosition.x, 5);
    EXPECT_EQ(cursorPosition.y, 6);
}

TEST_F(EventsTest, nothingIsHeardWhileASwitchIsPending)
{
    Scene scene;
    switchTo(scene);
    mouseEvent(100, 100, MouseEvent::Press);
    keyEvent('A', KeyEvent::Press);
    EXPECT_EQ(client.take(), "");
    performSwitch();
    keyEvent('A', KeyEvent::Press);
    EXPECT_EQ(client.take(), "down ");
    endScene();
}

} // namespace
} // namespace kez
