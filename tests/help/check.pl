# check.pl ROOT PAGES ALIASES: compares the sources of the help with what was read back from the
# compiled file (its files in the folder PAGES; its context numbers in ALIASES; its internal files
# in SYSTEM, WINDOWS and STRINGS) and with the program's numbers and texts.
use strict;
use warnings;

my ($root, $compiled, $aliases) = @ARGV;
my $failures = 0;
my $checks = 0;
sub expect {
    my ($right, $complaint) = @_;
    ++$checks;
    return if $right;
    ++$failures;
    print STDERR "$complaint\n";
}
sub slurp {
    my ($file) = @_;
    open my $in, '<:raw', $file or die "$file: $!\n";
    local $/;
    return <$in>;
}
sub names { my ($pattern) = @_; return sort map { s|.*/||r } glob "$root/help/$pattern" }

# What a reader sees of a caption: no access key, no tab, no colon or dots at its end.
sub plain {
    my ($text) = @_;
    $text =~ s/&(?!lt;|gt;|amp;|nbsp;)//g;
    $text =~ s/&lt;/</g;
    $text =~ s/&gt;/>/g;
    $text =~ s/\\n/ /g;
    $text =~ s/\s+/ /g;
    $text =~ s/^ | $//g;
    $text =~ s/[:.]+$//;
    return $text;
}
my %caption;
for my $file (['en', 'en'], ['de', 'de'], ['layers', 'en'], ['layers', 'de']) {
    my $text = slurp("$root/res/strings_$file->[0].rc");
    $caption{$file->[1]}{plain($1)} = 1 while $text =~ /, "(.*)"$/mg;
}

my @pages = names('en/*.html');
expect("@pages" eq join(' ', names('de/*.html')), 'the languages have not the same pages');
expect(join(' ', names('en/images/*')) eq join(' ', names('de/images/*')),
    'the languages have not the same pictures');

# Pages under their numbers, which the program asks for.
my $ids = join "", map { slurp($_) } "$root/res/ids.h", glob "$root/res/ids/*.h";
my ($offset) = $ids =~ /KELVANE_ENGLISH_OFFSET (\d+)/;
my %page_at = map { /^\D*(\d+)=(.*\S)/ ? ($1 => $2) : () } split /\n/, slurp($aliases);
my %numbered;
while ($ids =~ /^#define ID([HD])_(\w+) +(\d+)/mg) {
    my ($kind, $name, $number) = ($1, lc $2, $3);
    next if "$kind$name" eq 'Dsplash'; # gone after a moment, and nothing to press F1 in
    $name =~ tr/_/-/;
    ++$numbered{"$name.html"};
    for (['de', $number], ['en', $number + $offset]) {
        my ($language, $context) = @$_;
        my $found = $page_at{$context} // 'nothing';
        expect($found eq "$language/$name.html", "context $context opens $found, not $language/$name.html");
    }
}
expect(($numbered{$_} // 0) == 1, "$_ has not one context number") for @pages;

# Where the help opens that is asked for no page: of the file, and of its window.
my $start = "en/start.html\0";
expect(index(slurp('SYSTEM'), pack('vva*', 2, length $start, $start)) > 0, 'the default topic is another');
my ($default, $home) = unpack 'x112 V2', slurp('WINDOWS');
expect(substr(slurp('STRINGS'), $_, length $start) eq $start, 'the window begins elsewhere') for $default, $home;

my $contents = slurp("$compiled/kelvane.hhc");
my %anchors;
for my $language ('en', 'de') {
    for my $page (@pages) {
        my $text = slurp("$root/help/$language/$page");
        ++$anchors{"$language/$page#$1"} while $text =~ /\bid="([^"]+)"/g;
        my $listed = () = $contents =~ m|value="$language/$page"|g;
        expect($listed == 1, "$language/$page is $listed times in the contents");
    }
}
for my $language ('en', 'de') {
    for my $page (@pages) {
        my $where = "$language/$page";
        my $text = slurp("$root/help/$where");
        expect(-s "$compiled/$where", "$where is not in the compiled file");
        while ($text =~ /\b(?:href|src)="([^"]+)"/g) {
            my $target = $1;
            my ($file, $anchor) = $target =~ /^([^#]*)(?:#(.*))?$/;
            my $path = $file eq '' ? $where : "$language/$file";
            $path =~ s|[^/]+/\.\./||;
            expect(-s "$compiled/$path", "$where: $target is not in the compiled file");
            expect(!defined $anchor || $anchors{"$path#$anchor"}, "$where: $target has no such place");
        }
        while ($text =~ /src="([^"]+)" width="(\d+)" height="(\d+)"/g) {
            my ($width, $height) = unpack 'x16 N2', slurp("$compiled/$language/$1");
            expect("$width $height" eq "$2 $3", "$where: $1 is $width x $height pixels");
        }
        while ($text =~ m|<b class="ui">(.*?)</b>|sg) {
            expect($caption{$language}{plain($1)}, "$where: the program has no caption \"$1\"");
        }
        expect($text =~ /<title>[^<]+<\/title>/ && $text =~ /name="keywords" content="[^"]+"/,
            "$where has no title or no words for the index");
    }
}

# The page on formats stands beside the program; each half speaks its own language.
my %half = slurp("$root/help/formats.html") =~ m|<div lang="(\w+)">(.*?)</div>|sg;
for my $language ('en', 'de') {
    my $found = 0;
    while ($half{$language} =~ m|<b class="ui">(.*?)</b>|sg) {
        ++$found;
        expect($caption{$language}{plain($1)}, "formats.html: the program has no caption \"$1\"");
    }
    expect($found > 0, "formats.html has no half in $language");
}
my ($patterns) = slurp("$root/res/strings_en.rc") =~ /EN\(IDS_FILTER_PICTURES\), "[^|]*\|([^|]*)\|/;
for my $language ('en', 'de') {
    my ($direct) = $half{$language} =~ m|<table>(.*?)</table>|s;
    for my $extension (map { lc s/\*//r } split /;/, $patterns) {
        expect($direct =~ /\Q$extension\E\b/, "formats.html ($language) does not name $extension");
    }
}

expect(@pages > 30 && keys %page_at == 2 * @pages, 'too few pages were found');
print "$checks checks, $failures failures\n";
exit($failures ? 1 : 0);
