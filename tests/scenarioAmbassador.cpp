// The application's own RTI ambassador for the scenario tests, made where an application would make it: in a
// source that includes the RTI's headers, built at the level they accept, and none of the library's.
#include <RTI.hh>

void* scenarioMakeAmbassador() { return new RTI::RTIambassador(); }

void scenarioDropAmbassador(void* ambassador) { delete static_cast<RTI::RTIambassador*>(ambassador); }
