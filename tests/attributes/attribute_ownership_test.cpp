// What is deleted by whom. A fault shows under the address sanitizer.

#include <zelstandard/attributes/StateAttribute.h>

#include "attributes/Attributes.h"

using Standard::ActionType;
using Standard::StateAttribute;
using List = std::vector<StateAttribute*>;
using Token = Standard::StateAttributeToken;

TEST(AttributeOwnership, CopiesOfAListOwnCopiesOfTheActionTypes)
{
    ActionType snow(ActionType::Id::SNOW);
    StateAttribute first(Token::SNOW, &snow);
    first.setCombGroup(2);
    StateAttribute second(Token::WIND, nullptr);
    List list = {nullptr};
    StateAttribute::copyList(list, {&first, nullptr, &second});
    ASSERT_EQ(list.size(), 3U) << "appended, without the null entry";
    EXPECT_EQ(list[0], nullptr);
    EXPECT_TRUE(*list[1] == first);
    EXPECT_TRUE(*list[2] == second);
    EXPECT_NE(list[1]->getActionType(), &snow);
    EXPECT_EQ(list[1]->getActionTypeInstanceFlag(), 1);
    EXPECT_EQ(list[2]->getActionTypeInstanceFlag(), 0) << "nothing to own";

    List copies;
    StateAttribute::copyList(copies, list);
    EXPECT_NE(copies[0]->getActionType(), list[1]->getActionType());
    StateAttribute::copyList(list, list);
    EXPECT_EQ(list.size(), 5U) << "to its own end";
    StateAttribute::deleteContentOfList(list);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(copies[0]->getActionType()->getId(), ActionType::Id::SNOW);
    StateAttribute::deleteContentOfList(copies);
}

TEST(AttributeOwnership, DeletingAListLeavesActionTypesThatAreOwnedElsewhere)
{
    ActionType snow(ActionType::Id::SNOW);
    List list = {new StateAttribute(Token::SNOW, &snow), nullptr,
                 new StateAttribute(Token::WIND, nullptr)};
    list.back()->setActionTypeInstanceFlag(1);
    StateAttribute::deleteContentOfList(list);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(snow.getId(), ActionType::Id::SNOW);
}

TEST(AttributeOwnership, AShallowCopyMayGoAtAnyTimeBeforeTheListThatOwns)
{
    ActionType snow(ActionType::Id::SNOW);
    StateAttribute attribute(Token::SNOW, &snow);
    List list;
    StateAttribute::copyList(list, {&attribute});
    {
        StateAttribute copy = *list[0];
        copy = StateAttribute(*list[0]);
        EXPECT_EQ(copy.getActionType(), list[0]->getActionType());
        EXPECT_EQ(copy.getActionTypeInstanceFlag(), 1) << "as if it owned the type";
    }
    EXPECT_EQ(list[0]->getActionType()->getId(), ActionType::Id::SNOW)
        << "no destructor deletes a type";
    StateAttribute::deleteContentOfList(list);
}

// The one way to get rid of a copy: let it share an empty catalogue instead.
TEST(AttributeOwnership, ACopyOfACatalogueSharesItsAttributes)
{
    support::Attributes attributes;
    ActionType* const snow = attributes.types().findActionType(ActionType::Id::SNOW);
    attributes->add(Token::SNOW, snow);
    attributes->setCurrentAttribute(attributes->getAttributes()[0]);
    Standard::StateAttributeManager copy = *attributes;
    EXPECT_EQ(copy.getAttributes(), attributes->getAttributes());
    EXPECT_EQ(copy.getCurrentAttribute(), attributes->getCurrentAttribute());
    copy = Standard::StateAttributeManager(nullptr);
    EXPECT_TRUE(copy.getAttributes().empty());
    EXPECT_EQ(copy.getCurrentAttribute(), nullptr);

    attributes->reset();
    EXPECT_TRUE(attributes->getAttributes().empty());
    EXPECT_EQ(attributes->getCurrentAttribute(), nullptr);
    EXPECT_EQ(snow->getId(), ActionType::Id::SNOW);
}
