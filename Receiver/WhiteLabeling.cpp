#include "WhiteLabeling.h"

#include "Options.h"

#include <Poco/JSON/Object.h>
#include <Poco/JSON/Parser.h>

#include <fstream>
#include <sstream>

namespace wexel::receiver {

namespace {

Poco::JSON::Object::Ptr readObject(const std::string &path)
{
    std::ifstream file(path);
    if (!file)
        throw UsageError("The white-labeling file " + path + " can't be read");
    try {
        return Poco::JSON::Parser().parse(file).extract<Poco::JSON::Object::Ptr>();
    } catch (const Poco::Exception &) {
        throw UsageError("The white-labeling file " + path + " does not hold a JSON object");
    }
}

} // namespace

std::string readWhiteLabeling(const std::string &path)
{
    const Poco::JSON::Object::Ptr object = readObject(path);
    for (const char *key :
         {"text_color", "background", "placeholder_color", "highlighted_text_color", "slogan", "logo_url"}) {
        if (!object->get(key).isString())
            throw UsageError("The white-labeling file " + path + " must have a text under \"" + key + "\"");
    }
    std::ostringstream text;
    object->stringify(text);
    return text.str();
}

} // namespace wexel::receiver
