#!/usr/bin/env ruby
# frozen_string_literal: true
require 'json'
require_relative "lib/ring"

=begin
A comment over lines, with class and "quotes".
=end
module Moorfield
  # It's a ring with "slots".
  class Ring < Base
    include Enumerable
    attr_reader :size, :items
    LIMIT = 1_000
    @@count = 0

    def initialize(size: 0x1F, name: 'ring')
      @size = size # don't change
      @items = %w[one two three]
      $stderr.puts "#{name}: #{size} slots" if $DEBUG
      @@count += 1
    end

    def each(&block)
      return to_enum(:each) unless block_given?
      @items.each do |item|
        next if item.nil? || item =~ /^\s*#/
        yield item
      end
    rescue StandardError => e
      raise ArgumentError, "bad: #{e.message}"
    ensure
      puts "http://example.org/#anchor"; done = true
    end

    def empty? = @items.empty?

    def self.find(key)
      case key
      when Symbol, nil then :none
      when 1..10 then 2.5e3
      else { 'a' => 1, b: :c }
      end
    end
    private :each
    text = <<~TEXT
      here
    TEXT
    defined?(foo) and not self
  end
end
