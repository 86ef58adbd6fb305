// The parts of the logical time interfaces that are code.
#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeFactory.h>
#include <RTI/LogicalTimeInterval.h>

#include <ostream>

namespace rti1516e {

LogicalTime::~LogicalTime() = default;
LogicalTimeInterval::~LogicalTimeInterval() = default;
LogicalTimeFactory::~LogicalTimeFactory() = default;

std::wostream& operator<<(std::wostream& stream, LogicalTime const& time)
{
   return stream << time.toString();
}

std::wostream& operator<<(std::wostream& stream, LogicalTimeInterval const& interval)
{
   return stream << interval.toString();
}

} // namespace rti1516e
