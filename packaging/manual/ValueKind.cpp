#include "ValueKind.h"

#include <map>

ValueKind valueKind(const std::string &word)
{
    static const std::map<std::string, ValueKind> kinds{{"PROJECT", ValueKind::Project},
                                                        {"SPRITE", ValueKind::Sprite},
                                                        {"IMAGE", ValueKind::Sprite},
                                                        {"FILE", ValueKind::File},
                                                        {"FOLDER", ValueKind::Folder},
                                                        {"PATTERN", ValueKind::Pattern}};
    const auto found = kinds.find(word);
    return found == kinds.end() ? ValueKind::None : found->second;
}
