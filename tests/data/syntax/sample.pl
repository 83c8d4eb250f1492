#!/usr/bin/perl
# Counts words; doesn't care about "case".
use strict;
use warnings;
package Counter::Words v1.2;

=head1 NAME

Counter - if and while inside of documentation

=cut

our $VERSION = '1.02';
my %count = (apple => 1, 'pear tree' => 2);
my @list = qw(one two three);

sub count_words {
    my ($self, $file, @rest) = @_;
    open(my $fh, '<', $file) or die "can't open $file: $!";
    while (my $line = <$fh>) {
        chomp $line;
        next unless $line =~ /^\s*#?\w+/i;   # skip the rest
        $line =~ s/foo/bar/g;
        foreach my $word (split /\s+/, $line) {
            $count{lc $word}++ if length($word) > 0x0A;
        }
    }
    print STDERR "last index: $#list, total $count{apple}\n";
    return wantarray ? %count : \%count;
}

my $text = q{single {nested} quote} . qq(double "quote");
my $number = 1_000.5e-3 + $list[0] % 3;
local $_ = $ENV{HOME} // 'none';
print <<"EOT";
text
EOT
__END__
