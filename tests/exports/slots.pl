#!/usr/bin/env perl
# Prints the virtual functions of each class of the interface in the order of their slots, as the compiler has laid them
# out in a program or a library: slots.pl BINARY CLASS-PATTERN. The two ambassadors have only pure ones, and show in the
# classes that implement them.
use strict;
use warnings;
my ($binary, $pattern) = @ARGV;
my (%name, %class, %slot);
for (qx(nm --defined-only --print-size $binary)) {
   my ($address, $size, $symbol) = /^([0-9a-f]+) ([0-9a-f]+) \S (\S+)/ or next;
   $name{hex $address} = $symbol;
   $class{hex $address} = [$symbol, hex $size] if $symbol =~ /^_ZTV/ && $symbol =~ /$pattern/;
}
for (qx(readelf --relocs --wide $binary)) {
   if (/^([0-9a-f]+)\s+\S+\s+R_X86_64_RELATIVE\s+([0-9a-f]+)/) {
      $slot{hex $1} = $name{hex $2};
   } elsif (/^([0-9a-f]+)\s+\S+\s+R_X86_64_64\s+\S+\s+([^\s@]+)/) {
      $slot{hex $1} = $2;
   }
}
open my $out, '|-', 'c++filt' or die;
for my $address (sort { $class{$a}[0] cmp $class{$b}[0] } keys %class) {
   my ($symbol, $size) = @{$class{$address}};
   for (my $at = $address + 16, my $n = 0; $at < $address + $size; $at += 8, ++$n) {
      printf $out "%s %d %s\n", $symbol, $n, $slot{$at} // '?';
   }
}
