#pragma once

#include <Poco/JSON/Object.h>

#include <string>
#include <vector>

/// Docs/openapi.json.
class ApiDescription
{
public:
    struct Operation {
        std::string method;
        std::string path; ///< with names in braces
        Poco::JSON::Object::Ptr description;

        /// As the receiver names its routes, for example "GET /api/1.0/files/{}".
        std::string route() const;
        /// The path with each name's example in its place.
        std::string examplePath() const;
        /// Of the request's body; empty without one.
        std::string bodyType() const;
        std::string exampleBody() const;
        /// The parameters of the query.
        std::vector<Poco::JSON::Object::Ptr> queryParameters() const;
        bool needs(const std::string &scheme) const;
    };

    ApiDescription();

    const std::vector<Operation> &operations() const { return m_operations; }
    std::string version() const;

    /// What is wrong with an answer: a status or a type of content that is not described, or a body that does not fit its
    /// schema. Empty if nothing is.
    std::string fault(const Operation &operation, int status, const std::string &contentType,
                      const std::string &body) const;

private:
    Poco::JSON::Object::Ptr resolved(Poco::JSON::Object::Ptr object) const;
    std::string schemaFault(const Poco::JSON::Object::Ptr &schema, const std::string &body) const;

    Poco::JSON::Object::Ptr m_document;
    std::vector<Operation> m_operations;
};
