// SPDX-License-Identifier: MIT
#include "core/service.h"

#include "core/flags.h"
#include "support/debug_output.h"
#include "support/slots.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace kez {
namespace {

/// A kind of service with a registry of its own that may leave in the middle of a dispatch.
class Bell : public Service {
public:
    explicit Bell(char ownLetter, Service* client)
        : letter(ownLetter)
    {
        setClient(client);
        attach();
    }

    ~Bell() override { Bell::detach(); }

    List& registry() override { return bells; }

    void detach() override
    {
        leaveDispatch(registration_, position);
        Service::detach();
    }

    static inline List bells;
    static inline DispatchPosition position;
    char letter;
};

/// Writes down who fired and then does what the test asks.
class Listener : public Bell {
public:
    Listener()
        : Bell('?', nullptr)
    {
        detach();
    }

    void serviceStarting(Service& /*service*/) override { heard += '+'; }

    void serviceFired(Service& service) override
    {
        heard += static_cast<Bell&>(service).letter;
        if (reaction)
            reaction(static_cast<Bell&>(service));
    }

    std::string heard;
    std::function<void(Bell&)> reaction;
};

class DispatchTest : public testing::Test {
protected:
    std::string ring()
    {
        listener.heard.clear();
        dispatch(Bell::bells, Bell::position);
        return listener.heard;
    }

    Listener listener;
    std::unique_ptr<Bell> a = std::make_unique<Bell>('a', &listener);
    std::unique_ptr<Bell> b = std::make_unique<Bell>('b', &listener);
    std::unique_ptr<Bell> c = std::make_unique<Bell>('c', &listener);
};

TEST_F(DispatchTest, goesFromTheNewestToTheOldestUntilItIsStopped)
{
    EXPECT_EQ(ring(), "+c+b+a");
    EXPECT_TRUE(dispatching);
    listener.reaction = [](Bell& bell) {
        if (bell.letter == 'b')
            stopDispatch();
    };
    EXPECT_EQ(ring(), "+c+b");
    EXPECT_FALSE(dispatching);
}

TEST_F(DispatchTest, goesOnWhenTheFiredServiceLeaves)
{
    listener.reaction = [](Bell& bell) { bell.detach(); };
    EXPECT_EQ(ring(), "+c+b+a");
    EXPECT_EQ(Bell::bells.count(), 0);
    EXPECT_EQ(Bell::position.cursor, nullptr);
    dispatching = false;
    EXPECT_EQ(ring(), "");
    EXPECT_TRUE(dispatching);
}

// A screen that is left detaches, or destroys, all its services at once, also those that the event
// has yet to reach.
TEST_F(DispatchTest, survivesSeveralServicesLeavingAtOnce)
{
    listener.reaction = [this](Bell& bell) {
        if (bell.letter != 'c')
            return;
        c.reset();
        b.reset();
    };
    EXPECT_EQ(ring(), "+c+a");
    listener.reaction = [this](Bell&) { a.reset(); };
    EXPECT_EQ(ring(), "+a");
}

TEST_F(DispatchTest, servicesAttachedMeanwhileHearTheNextEvent)
{
    std::unique_ptr<Bell> d;
    listener.reaction = [&](Bell& bell) {
        if (bell.letter == 'b') { // leaves and comes back: again the newest, but not twice
            bell.detach();
            d = std::make_unique<Bell>('d', &listener);
            bell.attach();
        }
    };
    EXPECT_EQ(ring(), "+c+b+a");
    listener.reaction = nullptr;
    EXPECT_EQ(ring(), "+b+d+c+a");
}

TEST(Service, registersOnceAndLeavesOnce)
{
    Listener listener;
    EXPECT_FALSE(listener.isRegistered());
    listener.attach();
    listener.attach();
    EXPECT_TRUE(listener.isRegistered());
    EXPECT_EQ(Bell::bells.count(), 1);
    EXPECT_FALSE(Bell::bells.first()->owns());
    listener.detach();
    listener.detach();
    EXPECT_EQ(Bell::bells.count(), 0);
}

TEST(Service, leavesTheRegistryAloneWhileQuitting)
{
    {
        Bell bell('x', nullptr);
        quitting = true;
        bell.detach();
        EXPECT_TRUE(bell.isRegistered());
    }
    quitting = false;
    EXPECT_EQ(Bell::bells.count(), 1);
    Bell::bells.clear();
}

TEST(Service, reportsAMissingClient)
{
    Bell bell('x', nullptr);
    test::DebugOutput output;
    bell.fire();
    EXPECT_EQ(output.text(), "\nNull client for service Object.\n");
}

TEST(Slots, ofObjectAndService)
{
    using test::slotOf;
    const int slots[]
        = { slotOf(&Object::clone), slotOf(&Object::className), slotOf(&Object::getName),
              slotOf(&Object::serialize), test::destructorSlot, slotOf(&Service::registry),
              slotOf(&Service::isRegistered), slotOf(&Service::attach), slotOf(&Service::detach),
              slotOf(&Service::serviceStarting), slotOf(&Service::serviceFired) };
    for (int i = 0; i < 11; ++i)
        EXPECT_EQ(slots[i], i);
}

} // namespace
} // namespace kez
