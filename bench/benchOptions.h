// Options of the benchmark program beyond Google Benchmark's own.
#pragma once

#include <string>

namespace bench {
// The federation execution the RTI benchmarks use (--rti_execution=<url>): OpenRTI in this process by
// default, "rti://127.0.0.1:<port>/<name>" for a running rtinode.
std::string& rtiExecution();
// The same for HLA Evolved (--rti1516e_execution=<name>): "hla1516e+thread:///<name>" by default,
// "hla1516e+rti://127.0.0.1:<port>/<name>" for a running rtinode.
std::string& rti1516eExecution();
}  // namespace bench
