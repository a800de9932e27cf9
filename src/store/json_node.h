#pragma once

#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace ledra {

struct JSONObjectStorage;
struct JSONArrayStorage;

/// A number in its printed form.
struct JSONNumber
{
    std::string text;
};

struct JSONNull
{};

/// One node of the tree that the encoder builds and prints at the end. Texts are UTF-8.
///
/// Objects and arrays are shared by reference: a container that was handed out goes on filling the node that
/// its parent already holds.
using JSONNode = std::variant<std::string, JSONNumber, bool, std::shared_ptr<JSONObjectStorage>,
                              std::shared_ptr<JSONArrayStorage>, JSONNull>;

/// The pairs of an object in the order in which they were put in.
struct JSONObjectStorage
{
    std::vector<std::pair<std::string, JSONNode>> pairs;
};

struct JSONArrayStorage
{
    std::vector<JSONNode> items;
};

/// Prints a node without a final line feed: compact, or pretty with two spaces a level.
std::string printed(const JSONNode& node, bool pretty);

/// The text of numbers in data files: integers in plain decimal, floating-point numbers in their shortest
/// form that reads back the same, always with a fraction or an exponent (40.0, 0.19, 1e-05, 1e+16).
std::string numberText(double value);
std::string numberText(float value);

} // namespace ledra
