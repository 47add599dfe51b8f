#!/usr/bin/perl
# make-set.pl files|p2 FOLDER COUNT
#
# Fills FOLDER (which must not exist) with one of the small sets, random contents read from
# /dev/urandom in bulk by this one process, since a process per file would take longer than
# the copies being measured:
#   files  COUNT files of 20 KiB, stills-sized, in one folder
#   p2     a P2 card of COUNT clips, seven files each (clip XML, video, two audio channels, icon,
#          proxy and its index), about 133 KB per clip, so 3,000 clips make 21,000 files, ~400 MB
use strict;
use warnings;
use File::Path qw(make_path);

my ($kind, $root, $count) = @ARGV;
die "usage: make-set.pl files|p2 FOLDER COUNT\n" unless defined $count && $count =~ /^\d+$/;
die "make-set.pl: $root exists\n" if -e $root;

open(my $random, '<:raw', '/dev/urandom') or die "make-set.pl: /dev/urandom: $!\n";
my $pool = '';

sub random_bytes {
    my ($n) = @_;
    while (length($pool) < $n) {
        read($random, my $chunk, 4 << 20) or die "make-set.pl: /dev/urandom: $!\n";
        $pool .= $chunk;
    }
    return substr($pool, 0, $n, '');
}

sub write_file {
    my ($path, $content) = @_;
    open(my $out, '>:raw', $path) or die "make-set.pl: $path: $!\n";
    print $out $content or die "make-set.pl: $path: $!\n";
    close($out) or die "make-set.pl: $path: $!\n";
}

# Sizes vary from file to file, as on a card, but the same way on every run.
sub varied {
    my ($mean, $spread, $i) = @_;
    return $mean + (($i * 7919) % (2 * $spread + 1)) - $spread;
}

sub make_files {
    make_path($root);
    write_file(sprintf('%s/IMG_%05d.JPG', $root, $_), random_bytes(20480)) for 1 .. $count;
}

sub clip_xml {
    my ($id, $i) = @_;
    my $padding = unpack('H*', random_bytes(1200));
    return <<"XML";
<?xml version="1.0" encoding="UTF-8"?>
<P2Main><ClipContent><ClipName>$id</ClipName><GlobalClipID>060A2B340101010501010D4313000000${id}$i</GlobalClipID>
<ClipMetadata><Access><Creator>bench</Creator></Access><Memo>$padding</Memo></ClipMetadata></ClipContent></P2Main>
XML
}

sub make_p2_card {
    my $contents = "$root/CONTENTS";
    make_path(map { "$contents/$_" } qw(CLIP VIDEO AUDIO ICON PROXY VOICE));
    for my $i (0 .. $count - 1) {
        my $id = sprintf('%04dAB', $i);
        write_file("$contents/CLIP/$id.XML", clip_xml($id, $i));
        write_file("$contents/VIDEO/$id.MXF", random_bytes(varied(82000, 16000, $i)));
        write_file("$contents/AUDIO/${id}0$_.MXF", random_bytes(varied(12000, 2000, $i + $_))) for 0 .. 1;
        write_file("$contents/ICON/$id.BMP", random_bytes(14454));
        write_file("$contents/PROXY/$id.MP4", random_bytes(varied(9000, 3000, $i)));
        write_file("$contents/PROXY/$id.BIN", random_bytes(1024));
    }
    write_file("$root/LASTCLIP.TXT", sprintf("%04dAB\n", $count - 1));
}

if ($kind eq 'files') { make_files(); }
elsif ($kind eq 'p2') { make_p2_card(); }
else { die "make-set.pl: no set called $kind\n"; }
