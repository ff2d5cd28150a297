#include "package/PackageFailure.h"

namespace quillon {

namespace {

struct MessageOfCause {
    const std::string& package;

    std::string operator()(PackageFailure::Code code) const {
        return code == PackageFailure::Code::fileReadCorruptFile
                   ? package + ": not a folder that can be read"
                   : package + ": no article.json in this folder";
    }
    std::string operator()(const ReadFailure& failure) const {
        return package + "/article.json: " + failure.message();
    }
    std::string operator()(const EncodeFailure& failure) const {
        return package + "/article.json: " + failure.message;
    }
    std::string operator()(const DiskFailure& failure) const { return failure.message; }
};

} // namespace

std::string PackageFailure::message(const std::string& package) const {
    return std::visit(MessageOfCause{package}, cause);
}

} // namespace quillon
