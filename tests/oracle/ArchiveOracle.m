// Keyed archives as an independent implementation reads and writes them.
//
//   archive-oracle write FILE [xml]   an archive of every kind of value, see makeTree
//   archive-oracle read FILE          one line for each value of the archive, with its place
#import <Foundation/Foundation.h>

#include <stdio.h>
#include <string.h>

static NSDictionary* makeTree(void) {
  NSString* shared = @"shared text";
  NSMutableArray* list = [NSMutableArray arrayWithObjects:@"one", shared, shared, nil];
  [list addObject:[NSNull null]];
  NSMutableDictionary* nested = [NSMutableDictionary dictionary];
  [nested setObject:list forKey:@"list"];
  [nested setObject:list forKey:@"the same list"];
  [nested setObject:[NSDictionary dictionary] forKey:@"empty"];
  const unsigned char bytes[] = {0, 1, 254, 255};
  NSMutableDictionary* tree = [NSMutableDictionary dictionary];
  [tree setObject:nested forKey:@"nested"];
  [tree setObject:[NSNumber numberWithBool:YES] forKey:@"yes"];
  [tree setObject:[NSNumber numberWithBool:NO] forKey:@"no"];
  [tree setObject:[NSNumber numberWithInt:-5] forKey:@"negative"];
  [tree setObject:[NSNumber numberWithInt:300] forKey:@"int"];
  [tree setObject:[NSNumber numberWithLongLong:9223372036854775807LL] forKey:@"most"];
  [tree setObject:[NSNumber numberWithDouble:0.1] forKey:@"real"];
  [tree setObject:[NSNumber numberWithFloat:440.5f] forKey:@"float"];
  [tree setObject:[NSMutableString stringWithUTF8String:"W\xc3\xa4rme \xf0\x9f\x8e\xb9"]
           forKey:@"text"];
  [tree setObject:@"" forKey:@"no text"];
  [tree setObject:[NSData dataWithBytes:bytes length:4] forKey:@"data"];
  [tree setObject:[NSMutableData dataWithBytes:bytes length:2] forKey:@"mutable data"];
  [tree setObject:[NSDate dateWithTimeIntervalSinceReferenceDate:700000000.5] forKey:@"date"];
  [tree setObject:[NSArray arrayWithObjects:@"bass", @"lead", nil] forKey:@"Categories"];
  return tree;
}

static void print(NSString* place, id value) {
  const char* at = [place UTF8String];
  if ([value isKindOfClass:[NSDictionary class]]) {
    NSArray* keys = [[value allKeys] sortedArrayUsingSelector:@selector(compare:)];
    printf("%s dictionary %lu\n", at, (unsigned long)[keys count]);
    for (NSUInteger i = 0; i < [keys count]; ++i) {
      NSString* key = [keys objectAtIndex:i];
      print([NSString stringWithFormat:@"%@/%@", place, key], [value objectForKey:key]);
    }
  } else if ([value isKindOfClass:[NSArray class]]) {
    printf("%s array %lu\n", at, (unsigned long)[value count]);
    for (NSUInteger i = 0; i < [value count]; ++i)
      print([NSString stringWithFormat:@"%@/%lu", place, (unsigned long)i],
            [value objectAtIndex:i]);
  } else if ([value isKindOfClass:[NSString class]]) {
    printf("%s string %s\n", at, [value UTF8String]);
  } else if ([value isKindOfClass:[NSData class]]) {
    printf("%s data", at);
    for (NSUInteger i = 0; i < [value length]; ++i)
      printf(" %02x", ((const unsigned char*)[value bytes])[i]);
    printf("\n");
  } else if ([value isKindOfClass:[NSDate class]]) {
    printf("%s date %.3f\n", at, [value timeIntervalSinceReferenceDate]);
  } else if ([value isKindOfClass:[NSNull class]]) {
    printf("%s null\n", at);
  } else if ([value isKindOfClass:[NSNumber class]]) {
    const char type = *[value objCType];
    if (type == 'd' || type == 'f')
      printf("%s real %.17g\n", at, [value doubleValue]);
    else  // Booleans among them, which come as numbers too.
      printf("%s integer %lld\n", at, [value longLongValue]);
  } else {
    printf("%s what\n", at);
  }
}

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  NSAutoreleasePool* pool = [NSAutoreleasePool new];
  NSString* file = [NSString stringWithUTF8String:argv[2]];
  int code = 1;
  if (strcmp(argv[1], "write") == 0) {
    NSMutableData* data = [NSMutableData data];
    NSKeyedArchiver* archiver = [[NSKeyedArchiver alloc] initForWritingWithMutableData:data];
    [archiver setOutputFormat:argc > 3 ? NSPropertyListXMLFormat_v1_0
                                       : NSPropertyListBinaryFormat_v1_0];
    [archiver encodeObject:makeTree() forKey:@"root"];
    [archiver finishEncoding];
    code = [data writeToFile:file atomically:NO] ? 0 : 1;
    [archiver release];
  } else {
    id root = [NSKeyedUnarchiver unarchiveObjectWithFile:file];
    if (root) {
      print(@"", root);
      code = 0;
    }
  }
  [pool release];
  return code;
}
