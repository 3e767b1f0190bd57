// Delivery for the demo on any federation: the in-process federation delivers at once, an RTI a little later.
#pragma once

#include <functional>
#include <initializer_list>

class DtExerciseConn;

// Lets the connections process what arrives until done() holds, or a few seconds have passed; returns done().
bool deliverUntil(const std::function<bool()>& done, std::initializer_list<DtExerciseConn*> conns);
