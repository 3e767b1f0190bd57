// The application's own HLA Evolved RTI ambassador for the scenario tests, made where an application would
// make it: in a source that includes the RTI's 1516e headers, built at the level they accept, and none of the
// library's.
#include <RTI/RTI1516.h>
#include <RTI/RTIambassadorFactory.h>

void* scenarioMake1516eAmbassador() {
  rti1516e::RTIambassadorFactory factory;
  return factory.createRTIambassador().release();
}

void scenarioDrop1516eAmbassador(void* ambassador) {
  delete static_cast<rti1516e::RTIambassador*>(ambassador);
}
