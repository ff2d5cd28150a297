#include "package/ComponentSamples.h"

#include "base/Regex.h"
#include "base/Url.h"
#include "support/JsonData.h"

#include <gtest/gtest.h>

#include <set>

namespace quillon {
namespace {

using test::elements;
using test::jsonOf;
using test::members;
using test::objectOf;
using test::parsedJson;
using test::text;

/// `expected` with the sample's own address in it where the data asks for a kind of address only.
JSONValue withAddress(const JSONValue& expected, const JSONValue& sample) {
    auto fields = members(expected);
    const auto kind = members(fields["URL"]);
    if (kind.empty()) {
        return expected;
    }
    const std::string address = text(members(sample)["URL"]);
    EXPECT_TRUE(Regex("\\A(?:" + text(kind.at("matches")) + ")\\z").contains(address)) << address;
    EXPECT_TRUE(parseUrl(address)) << address;
    fields["URL"] = {address};
    return objectOf(fields);
}

TEST(ComponentSamples, everyRoleHasTheExpectedOne) {
    std::set<std::string_view> roles;
    for (const JSONValue& expected : elements(test::jsonData("package/data/component-samples.json"))) {
        const auto role = ComponentRole::fromRawValue(text(members(expected)["role"]));
        SCOPED_TRACE(role.rawValue());
        const std::string sample = jsonOf(makeSampleComponent(role));
        EXPECT_EQ(sample, jsonOf(withAddress(expected, parsedJson(sample))));
        EXPECT_TRUE(makeSampleComponent(role).preservedFields->empty());
        if (!(role == ComponentRole::other)) {
            roles.insert(role.rawValue());
        }
    }
    EXPECT_EQ(roles.size(), ComponentRole::allNamed().size());
}

TEST(ComponentSamples, nothingSharesAnId) {
    std::set<Uuid> ids;
    size_t made = 0;
    const auto note = [&](const Uuid& id) {
        ids.insert(id);
        ++made;
    };
    for (int time = 0; time < 2; ++time) {
        for (const ComponentRole role : ComponentRole::allNamed()) {
            const Component component = makeSampleComponent(role);
            note(component.id);
            for (const Component& child : component.components.value_or(List<Component>())) {
                note(child.id);
            }
            for (const GalleryItem& item : component.items.value_or(std::vector<GalleryItem>())) {
                note(item.id);
            }
            for (const DataDescriptor& column : component.data.value_or(RecordStore()).descriptors) {
                note(column.id);
            }
        }
    }
    EXPECT_EQ(ids.size(), made);
    EXPECT_EQ(sampleGalleryItems(ComponentRole::photo).size(), 0U);
}

} // namespace
} // namespace quillon
