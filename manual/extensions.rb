# frozen_string_literal: true

# What the manuals write besides plain AsciiDoc. Each of it names something that the program shows and
# stops the build when the program does not show it:
#
#   ui:key[]            the text of that name in the language table
#   shown:[text]        a text that stands in one of the pictures of the panel in this language
#   panel::name[alt]    a picture of pictures.yml, with its numbered marks
#
# Document attributes: texts (the language table), pictures (the folder with what tamberline-replay
# made for this language).

require 'asciidoctor-pdf'
require 'base64'
require 'cgi'
require 'json'
require 'yaml'

module TamberlineManual
  LANGUAGES = %w[en de fr it es].freeze
  NO_BREAK_SPACE = "\u00a0"
  LONGEST_UNBROKEN_TEXT = 24
  PICTURES = YAML.load_file(File.join(__dir__, 'pictures.yml')).freeze

  # The texts of src/i18n/fixed_texts.def in one language, by key.
  class LanguageTable
    TEXT = /"((?:[^"\\]|\\.)*)"/
    ENTRY = /TAMBERLINE_TEXT\((\w+),\s*#{([TEXT] * LANGUAGES.size).join(',\s*')}\)/

    def initialize(file, language)
      column = LANGUAGES.index(language) or raise "there is no manual in the language '#{language}'"
      @texts = File.read(file, encoding: 'UTF-8').scan(ENTRY).to_h do |key, *texts|
        [key, texts[column].gsub(/\\(.)/, '\1')]
      end
    end

    def text(key)
      @texts.fetch(key) { raise "the language table has no text '#{key}'" }
    end

    # With each {key} in it replaced.
    def fill(pattern)
      pattern.gsub(/\{(\w+)\}/) { text(Regexp.last_match(1)) }
    end
  end

  Place = Struct.new(:text, :x, :y, :width, :height, keyword_init: true) do
    def right = x + width
    def bottom = y + height
    def middle_x = x + width / 2.0
    def middle_y = y + height / 2.0
  end

  # A picture that tamberline-replay made, with where its texts are.
  class Screenshot
    attr_reader :png

    def initialize(folder, name)
      @name = name
      @png = File.binread(File.join(folder, "#{name}.png"))
      @places = JSON.parse(File.read(File.join(folder, "#{name}.json"), encoding: 'UTF-8'))
                    .map { |place| Place.new(**place.transform_keys(&:to_sym)) }
    end

    def show?(text) = @places.any? { |place| place.text.include?(text) }

    # Of several with this text, the first after `top`; a text of the panel goes before the name of
    # a whole row, which begins with it.
    def place(text, top = 0)
      below = @places.select { |place| place.y >= top }
      below.find { |place| place.text == text } ||
        below.find { |place| place.text.start_with?("#{text},", "#{text}:", "#{text}\u202f:") } ||
        raise("there is no '#{text}' in the picture '#{@name}'")
    end

    # In points; the picture has more pixels.
    def size
      @size ||= [PANEL_WIDTH, PANEL_WIDTH.to_f * @png[20, 4].unpack1('N') / @png[16, 4].unpack1('N')]
    end

    PANEL_WIDTH = 400
  end

  # A part of a screenshot as SVG, with numbered marks around it.
  class MarkedPicture
    MARGIN = 26
    MARGIN_WITHOUT_MARKS = 4
    SYMBOL_WIDTH = 22
    RADIUS = 8
    SPACE_BETWEEN = 2 * RADIUS + 3
    COLOR = '#1d4ed8'

    def initialize(screenshot, picture, table)
      @screenshot = screenshot
      @table = table
      @top = picture['from'] ? edge(picture['from']) : 0
      @bottom = picture['to'] ? edge(picture['to']) : screenshot.size[1]
      @marks = (picture['marks'] || []).map { |mark| [mark['side'], place_of(mark)] }
    end

    def svg
      width = Screenshot::PANEL_WIDTH + 2 * MARGIN
      <<~SVG
        <svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink"
             viewBox="#{-MARGIN} #{@top - margin_above} #{width} #{height}" width="#{width}" height="#{height}">
          <clipPath id="part"><rect x="0" y="#{@top}" width="#{Screenshot::PANEL_WIDTH}" height="#{@bottom - @top}"/></clipPath>
          <g clip-path="url(#part)">#{image}</g>
          <rect x="0" y="#{@top}" width="#{Screenshot::PANEL_WIDTH}" height="#{@bottom - @top}" fill="none" stroke="#c9ccd3" stroke-width="0.7"/>
          #{marks_svg}
        </svg>
      SVG
    end

    def height = @bottom - @top + margin_above + MARGIN_WITHOUT_MARKS

    private

    def side?(side) = @marks.any? { |mark| mark.first == side }
    def margin_above = side?('top') ? MARGIN : MARGIN_WITHOUT_MARKS

    def edge(description)
      place = @screenshot.place(@table.fill(description['text']), top_of(description))
      place.y + (description['offset'] || 0)
    end

    def place_of(mark) = @screenshot.place(@table.fill(mark['text']), [top_of(mark), @top].max)

    # Marks and edges may say which text they stand below, where a text is there several times.
    def top_of(description)
      description['below'] ? @screenshot.place(@table.fill(description['below'])).y : 0
    end

    def image
      width, height = @screenshot.size
      %(<image x="0" y="0" width="#{width}" height="#{height}" ) +
        %(xlink:href="data:image/png;base64,#{Base64.strict_encode64(@screenshot.png)}"/>)
    end

    def marks_svg
      taken = Hash.new { |lists, side| lists[side] = [] }
      @marks.each_with_index.map do |(side, place), index|
        disc = disc_center(side, place, taken[side])
        taken[side] << disc
        mark_svg(index + 1, disc, tip(side, place))
      end.join("\n")
    end

    # Moved along its edge while another disc is there.
    def disc_center(side, place, others)
      axis = side == 'top' ? 0 : 1
      center = { 'left' => [-MARGIN / 2.0, place.middle_y],
                 'right' => [Screenshot::PANEL_WIDTH + MARGIN / 2.0, place.middle_y],
                 'top' => [place.middle_x, @top - MARGIN / 2.0],
                 'after' => [place.right + RADIUS + 3, place.middle_y],
                 'below' => [place.middle_x, place.bottom + RADIUS + 3] }.fetch(side)
      center[axis] += 1 while others.any? { |other| (other[axis] - center[axis]).abs < SPACE_BETWEEN }
      center
    end

    # Where the line ends: at the edge of the text that is nearest to the disc, before its symbol.
    def tip(side, place)
      { 'left' => [place.x - SYMBOL_WIDTH, place.middle_y],
        'right' => [place.right + 2, place.middle_y],
        'top' => [place.middle_x, place.y - 1] }[side]
    end

    def line_svg(from, to)
      %(<line x1="#{from[0]}" y1="#{from[1]}" x2="#{to[0]}" y2="#{to[1]}" ) +
        %(stroke="#{COLOR}" stroke-width="0.8"/>)
    end

    def mark_svg(number, disc, tip)
      <<~SVG
        #{line_svg(disc, tip) if tip}
        <circle cx="#{disc[0]}" cy="#{disc[1]}" r="#{RADIUS}" fill="#{COLOR}"/>
        <text x="#{disc[0]}" y="#{disc[1] + 3.6}" font-family="Noto Sans" font-size="10" font-weight="bold"
              fill="#ffffff" text-anchor="middle">#{number}</text>
      SVG
    end
  end

  # What the macros of one document know.
  class Sources
    attr_reader :table

    def self.of(document)
      @known ||= {}
      @known[document] ||= new(document)
    end

    def initialize(document)
      @folder = document.attr('pictures')
      @table = LanguageTable.new(document.attr('texts'), document.attr('lang'))
      @screenshots = {}
    end

    def screenshot(name) = @screenshots[name] ||= Screenshot.new(@folder, name)

    def shown(text)
      known = PICTURES['screenshots'].keys.any? { |name| screenshot(name).show?(text) }
      known ? text : raise("no picture of the panel shows '#{text}'")
    end

    def marked(name)
      picture = PICTURES['pictures'].fetch(name) { raise "pictures.yml has no '#{name}'" }
      MarkedPicture.new(screenshot(picture['screenshot']), picture, @table)
    end

    def write(name, picture)
      file = File.join(@folder, "#{name}.svg")
      File.write(file, picture.svg)
      file
    end
  end

  # As the panel's own words look in the manual.
  def self.quoted(processor, parent, text)
    unbroken = text.size > LONGEST_UNBROKEN_TEXT ? text : text.tr(' ', NO_BREAK_SPACE)
    processor.create_inline(parent, :quoted, CGI.escapeHTML(unbroken), type: :unquoted,
                                                                       attributes: { 'role' => 'ui' })
  end
end

class ManualConverter < Asciidoctor::Converter.for('pdf')
  register_for 'pdf'

  # Says in the PDF in which language it is, for programs that read it aloud.
  def init_pdf(document)
    super.tap { state.store.root.data[:Lang] = PDF::Core::LiteralString.new(document.attr('lang')) }
  end

  alias convert_breaking_paragraph convert_paragraph

  # Moves a paragraph to the next page if a page break would leave a single line of it alone.
  def convert_paragraph(node, opts = nil)
    advance_page if !at_page_top? && single_line_alone?(node, opts)
    convert_breaking_paragraph(node, opts)
  end

  # Moves a heading to the next page before the converter notes its page: where the heading itself does not
  # fit, the contents and links would lead to the page before.
  def arrange_heading(node, title, opts)
    cursor < room_for_heading ? advance_page : super
  end

  private

  # With two lines of text below it.
  def room_for_heading
    @theme.heading_margin_top + @theme.heading_h2_font_size * @theme.heading_line_height +
      @theme.heading_margin_bottom + 2 * @theme.base_line_height_length.to_f
  end

  def single_line_alone?(node, opts)
    extent = dry_run do
      push_scratch(node.document)
      convert_breaking_paragraph(node, opts)
    ensure
      pop_scratch(node.document)
    end
    return false if extent.from.page > 1 || extent.to.page == 1

    line = @theme.base_line_height_length.to_f
    lines_before = (extent.from.cursor / line).floor
    lines_after = ((bounds.height - extent.to.cursor - @theme.prose_margin_bottom) / line).round
    lines_before == 1 || lines_after == 1
  end
end

Asciidoctor::Extensions.register do
  inline_macro do
    named :ui
    process do |parent, key, _attributes|
      TamberlineManual.quoted(self, parent, TamberlineManual::Sources.of(parent.document).table.text(key))
    end
  end

  inline_macro do
    named :shown
    match(/shown:\[(?<target>[^\]]+)\]/)
    process do |parent, text, _attributes|
      plain = CGI.unescapeHTML(text)
      TamberlineManual.quoted(self, parent, TamberlineManual::Sources.of(parent.document).shown(plain))
    end
  end

  block_macro do
    named :panel
    positional_attributes 'alt'
    process do |parent, name, attributes|
      sources = TamberlineManual::Sources.of(parent.document)
      file = sources.write(name, sources.marked(name))
      width = TamberlineManual::PICTURES['pictures'][name]['width']
      create_image_block(parent, 'target' => file, 'alt' => attributes['alt'], 'format' => 'svg',
                                 'pdfwidth' => width, 'align' => 'center')
    end
  end
end
