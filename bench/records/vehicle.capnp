@0xd2f3a1c4b5968778;

using Cxx = import "/capnp/c++.capnp";
$Cxx.namespace("bench::capnproto");

struct Point {
  x @0 :Float64;
  y @1 :Float64;
  z @2 :Float64;
}

struct Vehicle {
  name @0 :Text;
  kind @1 :Int32;
  time @2 :Int64;
  fuel @3 :Float32;
  heading @4 :Float64;
  position :group {
    x @5 :Float64;
    y @6 :Float64;
    z @7 :Float64;
  }
  track @8 :List(Point);
}
