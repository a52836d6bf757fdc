#!/usr/bin/perl
# The tables of both schemas, read by parsers of the two engines: each takes its text whole, and they
# tell of the same tables and columns in the same order.
use strict;
use warnings;

eval { require SQL::Translator; 1 }
  or die "SQL::Translator is missing: install the package libsql-translator-perl\n";

# The text without its comments: the parsers know them only between statements.
sub statements {
    my ($file) = @_;
    open my $text, '<', $file or die "$file: $!\n";
    local $/;
    my $statements = <$text>;
    $statements =~ s/--.*//g;
    return $statements;
}

sub parse {
    my ( $parser, $file ) = @_;
    my $translator = SQL::Translator->new( parser => $parser, quote_identifiers => 0 );
    my $statements = statements($file);
    my $schema;
    $translator->translate( data => \$statements, producer => sub { $schema = shift->schema; 1 } )
      or die "$file: " . $translator->error . "\n";
    return $schema;
}

sub described {
    my ($schema) = @_;
    my @lines;
    for my $table ( $schema->get_tables ) {
        my @fields = map { $_->name } $table->get_fields;
        my $key    = $table->primary_key;
        push @lines, sprintf "%s (%s) key %s", $table->name, join( ', ', @fields ),
          $key ? join( ', ', $key->fields ) : 'none';
    }
    return @lines;
}

my ( $sqlserver, $sqlite ) = @ARGV;
my %types = map { $_ => 1 } qw(int smallint tinyint bit nvarchar varchar);
my $server = parse( 'SQLServer', $sqlserver );
my $file   = parse( 'SQLite',    $sqlite );

my @ours   = described($server);
my @theirs = described($file);
my $wrong  = 0;
for my $i ( 0 .. ( @ours > @theirs ? $#ours : $#theirs ) ) {
    my ( $one, $other ) = ( $ours[$i] // 'nothing', $theirs[$i] // 'nothing' );
    next if $one eq $other;
    print "SQL Server: $one\nSQLite:     $other\n";
    $wrong++;
}

for my $table ( $server->get_tables ) {
    for my $field ( $table->get_fields ) {
        next if $types{ lc $field->data_type };
        print $table->name, ".", $field->name, " is a ", $field->data_type, "\n";
        $wrong++;
    }
}

# Each statement has to have become a table or an index: none may have been passed over.
sub counted {
    my ($text) = @_;
    my $tables  = () = $text =~ /^CREATE TABLE /mg;
    my $indexes = () = $text =~ /^CREATE INDEX /mg;
    return ( $tables, $indexes );
}
my ( $tables, $indexes ) = counted( statements($sqlserver) );
my $read = 0;
for my $table ( $server->get_tables ) {
    my @indexes = $table->get_indices;
    $read += @indexes;
}
if ( $tables != @ours || $tables < 28 ) {
    print "$tables tables in the text, ", scalar @ours, " read\n";
    $wrong++;
}
if ( $indexes != $read ) {
    print "$indexes indexes in the text, $read read\n";
    $wrong++;
}
die "$wrong differences\n" if $wrong;
print scalar @ours, " tables and $read indexes\n";
