# finish_chm.pl FILE.chm IVB-FILE PREFIX: makes a file of chmcmd's usable by context number.
#
# chmcmd names the pages of context numbers by their path on the disk, PREFIX included, and HTML
# Help finds nothing there. The names stay, compressed, in the stream #STRINGS; here the numbers'
# stream #IVB (IVB-FILE holds a copy: a size, then pairs of number and place of a name) is made to
# point behind the prefix. It is appended uncompressed, and its directory entry changed.
#
# The time of the compilation, which stands in two places, becomes zero.
use strict;
use warnings;

my ($file, $ivb_file, $prefix) = @ARGV;
sub slurp { my ($name) = @_; open my $in, '<:raw', $name or die "$name: $!\n"; local $/; return <$in> }
my $chm = slurp($file);
my ($size, %name_of) = unpack 'V (VV)*', slurp($ivb_file);
die "not a CHM file of version 3\n" unless unpack('a4 V', $chm) eq 'ITSF' && unpack('x4 V', $chm) == 3;

# Numbers of any size in the directory: seven bits a byte, high ones first.
sub number {
    my ($value) = @_;
    my $text = chr($value & 0x7F);
    $text = chr(0x80 | $value & 0x7F) . $text while $value >>= 7;
    return $text;
}
sub read_number {
    my ($text, $at) = @_;
    my $value = 0;
    while (1) {
        my $byte = ord substr($$text, $$at++, 1);
        $value = $value << 7 | $byte & 0x7F;
        return $value unless $byte & 0x80;
    }
}

my $kDirectory = 0x78 + 0x54;   # first chunk, after the headers
my $kChunk = 0x1000;
my $kChunkHeader = 0x14;
my $kQuickEvery = 5;            # one entry of five stands in the list at the chunk's end
my $content = unpack 'x88 Q<', $chm;

my $chunk = substr $chm, $kDirectory, $kChunk;
die "the first chunk of the directory lists no files\n" unless unpack('a4', $chunk) eq 'PMGL';
my $count = unpack 'v', substr($chunk, -2);
my ($at, @entries) = ($kChunkHeader);
my $system;
for (1 .. $count) {
    my $length = read_number(\$chunk, \$at);
    my $name = substr $chunk, $at, $length;
    $at += $length;
    my ($section, $offset, $bytes) = map { read_number(\$chunk, \$at) } 1 .. 3;
    ($section, $offset, $bytes) = (0, length($chm) - $content, $size + 4) if $name eq '/#IVB';
    $system = $content + $offset if $name eq '/#SYSTEM';
    next if $name eq '/_#_README_#_'; # tells of chmcmd; leaves room for the longer entry
    push @entries, number($length) . $name . join '', map { number($_) } $section, $offset, $bytes;
}
die "no #SYSTEM in the first chunk\n" unless defined $system;

my ($list, @quick) = ('');
for my $i (0 .. $#entries) {
    push @quick, length $list if $i > 0 && $i % $kQuickEvery == 0;
    $list .= $entries[$i];
}
my $end = pack 'v*', reverse(@quick), scalar @entries;
my $free = $kChunk - $kChunkHeader - length $list;
die "the first chunk of the directory is full\n" if $free < length $end;
my $header = substr $chunk, 0, $kChunkHeader;
substr $header, 4, 4, pack 'V', $free;
substr $chm, $kDirectory, $kChunk, $header . $list . "\0" x ($free - length $end) . $end;

$chm .= pack 'V (VV)*', $size, map { $_, $name_of{$_} + length $prefix } sort { $a <=> $b } keys %name_of;
substr $chm, 0x68, 8, pack 'Q<', length $chm;

substr $chm, 0x10, 4, "\0" x 4;
die "no time in #SYSTEM\n" unless unpack('x4 v', substr $chm, $system, 6) == 10;
substr $chm, $system + 8, 4, "\0" x 4;

open my $out, '>:raw', $file or die "$file: $!\n";
print $out $chm or die "$file: $!\n";
close $out or die "$file: $!\n";
