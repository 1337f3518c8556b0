// What is deleted by whom. A fault shows under the address sanitizer.

#include <zelstandard/attributes/StateAttribute.h>

#include "attributes/Attributes.h"

using Standard::ActionType;
using Standard::Mode;
using Standard::StateAttribute;
using Standard::StateAttributeManager;
using List = std::vector<StateAttribute*>;
using Token = Standard::StateAttributeToken;

TEST(AttributeOwnership, CopiesOfAListOwnCopiesOfTheActionTypes)
{
    support::Attributes attributes;
    ActionType* const snow = attributes.types().findActionType(ActionType::Id::SNOW);
    attributes->add(Token::SNOW, snow);
    attributes->add(Token::WIND, nullptr);
    attributes->getAttributes().front()->setCombGroup(2);
    attributes->getAttributes().front()->addStandard(Mode::CSN);

    List source = attributes->getAttributes();
    source.insert(source.begin() + 1, nullptr);
    List copies = {nullptr};
    StateAttribute::copyList(copies, source);

    ASSERT_EQ(copies.size(), 3U) << "appended, without the null entry";
    EXPECT_EQ(copies[0], nullptr);
    EXPECT_TRUE(*copies[1] == *source[0]);
    EXPECT_TRUE(*copies[2] == *source[2]);
    EXPECT_NE(copies[1]->getActionType(), snow);
    EXPECT_EQ(copies[1]->getActionTypeInstanceFlag(), 1);
    EXPECT_EQ(copies[2]->getActionTypeInstanceFlag(), 0) << "nothing to own";

    StateAttribute::deleteContentOfList(copies);
    EXPECT_TRUE(copies.empty());
    EXPECT_EQ(snow->getId(), ActionType::Id::SNOW);
}

TEST(AttributeOwnership, ACopiedListIsCopiedWithActionTypesOfItsOwn)
{
    ActionType snow(ActionType::Id::SNOW);
    StateAttribute attribute(Token::SNOW, &snow);
    List first;
    List second;
    StateAttribute::copyList(first, {&attribute});
    StateAttribute::copyList(second, first);
    EXPECT_NE(second[0]->getActionType(), first[0]->getActionType());
    StateAttribute::deleteContentOfList(first);
    EXPECT_EQ(second[0]->getActionType()->getId(), ActionType::Id::SNOW);
    StateAttribute::deleteContentOfList(second);
}

TEST(AttributeOwnership, AListMayBeCopiedToItsOwnEnd)
{
    ActionType snow(ActionType::Id::SNOW);
    StateAttribute attribute(Token::SNOW, &snow);
    List list;
    StateAttribute::copyList(list, {&attribute, &attribute, &attribute});
    StateAttribute::copyList(list, list);
    ASSERT_EQ(list.size(), 6U);
    for (const StateAttribute* copy : list)
        EXPECT_TRUE(*copy == attribute);
    StateAttribute::deleteContentOfList(list);
}

TEST(AttributeOwnership, DeletingAListLeavesActionTypesThatAreOwnedElsewhere)
{
    support::Attributes attributes;
    ActionType* const snow = attributes.types().findActionType(ActionType::Id::SNOW);
    List list = {new StateAttribute(Token::SNOW, snow), nullptr,
                 new StateAttribute(Token::WIND, nullptr)};
    list.back()->setActionTypeInstanceFlag(1);
    StateAttribute::deleteContentOfList(list);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(snow->getId(), ActionType::Id::SNOW);
}

TEST(AttributeOwnership, AShallowCopyMayGoAtAnyTimeBeforeTheListThatOwns)
{
    ActionType snow(ActionType::Id::SNOW);
    StateAttribute attribute(Token::SNOW, &snow);
    List list;
    StateAttribute::copyList(list, {&attribute});
    {
        const StateAttribute constructed = *list[0];
        StateAttribute assigned(Token::WIND, nullptr);
        assigned = constructed;
        EXPECT_EQ(assigned.getActionType(), list[0]->getActionType());
        EXPECT_EQ(assigned.getActionTypeInstanceFlag(), 1) << "as if it owned the type";
    }
    EXPECT_EQ(list[0]->getActionType()->getId(), ActionType::Id::SNOW)
        << "no destructor deletes a type";
    StateAttribute::deleteContentOfList(list);
}

// The one way to get rid of a copy: let it share an empty catalogue instead.
TEST(AttributeOwnership, ACopyOfACatalogueSharesItsAttributes)
{
    support::Attributes attributes;
    attributes->add(Token::SNOW, nullptr);
    attributes->add(Token::WIND, nullptr);
    attributes->setCurrentAttribute(attributes->getAttributes()[1]);

    const StateAttributeManager empty(nullptr);
    StateAttributeManager copy = *attributes;
    EXPECT_EQ(copy.getAttributes(), attributes->getAttributes());
    EXPECT_EQ(copy.getCurrentAttribute(), attributes->getCurrentAttribute());
    EXPECT_EQ(copy.getActionTypeManager(), &attributes.types());
    copy = empty;
    EXPECT_TRUE(copy.getAttributes().empty());
    EXPECT_EQ(copy.getCurrentAttribute(), nullptr);
    EXPECT_EQ(copy.getActionTypeManager(), nullptr);
    copy = *attributes;
    EXPECT_EQ(copy.getAttributes(), attributes->getAttributes());
    copy = empty;

    EXPECT_EQ(attributes->getAttributes()[1]->getToken(), Token::WIND);
}

TEST(AttributeOwnership, AResetCatalogueLeavesTheActionTypes)
{
    support::Attributes attributes;
    ActionType* const snow = attributes.types().findActionType(ActionType::Id::SNOW);
    attributes->add(Token::SNOW, snow);
    attributes->setCurrentAttribute(attributes->getAttributes()[0]);
    attributes->reset();
    EXPECT_TRUE(attributes->getAttributes().empty());
    EXPECT_EQ(attributes->getCurrentAttribute(), nullptr);
    EXPECT_EQ(snow->getId(), ActionType::Id::SNOW);
}
