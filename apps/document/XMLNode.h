// Pieces of an XML document that a reader keeps without knowing what they mean. Plain values.
#pragma once

#include <string>
#include <vector>

namespace corvane::backup {

struct XMLAttribute {
    std::string name;
    std::string value;

    friend bool operator==(const XMLAttribute&, const XMLAttribute&) = default;
};
using XMLAttributes = std::vector<XMLAttribute>;

/// An element or, without a name, a text between elements.
struct XMLNode {
    std::string name;
    XMLAttributes attributes;
    std::string text;
    std::vector<XMLNode> children;

    friend bool operator==(const XMLNode&, const XMLNode&) = default;
};

}  // namespace corvane::backup
