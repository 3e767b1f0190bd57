
-- The kind-202 (control PDU) dissector: every field of the view- and draw-control PDUs, each shown as the
-- library's dump shows it (label, then value), so that a capture reads the same here as in vistralInspect.
-- Offsets and names come from the tables above; a field the PDU is too short for reads as zero or empty,
-- as the library's own bounded accessors read it, and the PDU is flagged as malformed.

local proto = Proto("vistral", "Vistral control PDU")
local labelWidth = 24

local keys = {
  "viewer_id", "sender_id", "command", "ignore_flags", "field", "object_id", "type", "param_version",
  "options_bitfield", "entity", "segment", "point", "text",
}
local F = {}
for _, key in ipairs(keys) do
  F[key] = ProtoField.string("vistral." .. key, key)
end
proto.fields = {}
for _, key in ipairs(keys) do table.insert(proto.fields, F[key]) end
local E = {short = ProtoExpert.new("vistral.short", "Field past the PDU's end", expert.group.MALFORMED,
                                   expert.severity.WARN)}
proto.experts = {E.short}

local prefs = proto.prefs
prefs.port = Pref.uint("UDP port", 3000, "The UDP port whose datagrams are read as control PDUs first")

-- One dissection: the bytes of one PDU (as long as its length field says) and the tree it fills.
local D = {}
D.__index = D

local function new(tvb, tree)
  return setmetatable({tvb = tvb, len = tvb:len(), tree = tree, short = false}, D)
end

function D:fits(o, n) return o >= 0 and o + n <= self.len end
function D:u8(o) if self:fits(o, 1) then return self.tvb(o, 1):uint() end self.short = true return 0 end
function D:u16(o) if self:fits(o, 2) then return self.tvb(o, 2):uint() end self.short = true return 0 end
function D:u32(o) if self:fits(o, 4) then return self.tvb(o, 4):uint() end self.short = true return 0 end
function D:i32(o) if self:fits(o, 4) then return self.tvb(o, 4):int() end self.short = true return 0 end
function D:f32(o) if self:fits(o, 4) then return self.tvb(o, 4):float() end self.short = true return 0 end
function D:f64(o) if self:fits(o, 8) then return self.tvb(o, 8):float() end self.short = true return 0 end

-- Text of at most width bytes, ending at the first zero or at the PDU's end.
function D:text(o, width)
  if o < 0 or o >= self.len or width <= 0 then return "" end
  local n = math.min(width, self.len - o)
  local s = self.tvb:raw(o, n)
  local z = s:find("\0", 1, true)
  if z then s = s:sub(1, z - 1) end
  return s
end

function D:range(o, n)
  if o >= 0 and n > 0 and o < self.len then return self.tvb(o, math.min(n, self.len - o)) end
  return nil
end

-- One dump line: the label padded to the dump's width, a blank, the value.
function D:line(key, o, n, label, value)
  local text = label .. string.rep(" ", labelWidth - #label) .. " " .. value
  local r = self:range(o, n)
  local item
  if r then item = self.tree:add(F[key], r, value) else item = self.tree:add(F[key], value) end
  item:set_text(text)
  return item
end

local function f(v) return string.format("%f", v) end
local function three(a, b, c) return string.format("%f %f %f", a, b, c) end
local function enum(names, v) return (names[v] or "UnknownEnum") .. " (" .. v .. ")" end

function D:vector64(o) return three(self:f64(o), self:f64(o + 8), self:f64(o + 16)) end
function D:vector32(o) return three(self:f32(o), self:f32(o + 4), self:f32(o + 8)) end
-- A name field is read only when the whole field lies inside the PDU.
function D:name(key, o, label)
  local value = ""
  if self:fits(o, L.nameWidth) then value = self:text(o, L.nameWidth) else self.short = true end
  self:line(key, o, L.nameWidth, label, value)
end
function D:float32(o, label) self:line("field", o, 4, label, f(self:f32(o))) end
function D:float64(o, label) self:line("field", o, 8, label, f(self:f64(o))) end

-- The fixed part every control PDU shares.
function D:fixed()
  self:name("viewer_id", L.fixed.viewerId, "ViewerId")
  self:name("sender_id", L.fixed.senderId, "SenderId")
  local command = self:u16(L.fixed.command)
  -- The command of the class the image is read as (a draw class may stand for several commands).
  local read = L.classCommand[command] or command
  self:line("command", L.fixed.command, 2, "Command", enum(N.command, read))
  if read ~= command then
    local item = self.tree:add(F.command, self.tvb(L.fixed.command, 2), enum(N.command, command))
    item:set_text("[On the wire: " .. enum(N.command, command) .. "]")
    item:set_generated()
  end
  -- The flags as the host holds them: least significant byte first.
  local flags = self:fits(L.fixed.ignoreFlags, 4) and self.tvb(L.fixed.ignoreFlags, 4):uint() or 0
  self:line("ignore_flags", L.fixed.ignoreFlags, 4, "IgnoreFlags",
            string.format("%02x %02x %02x %02x", flags % 256, math.floor(flags / 256) % 256,
                          math.floor(flags / 65536) % 256, math.floor(flags / 16777216) % 256))
  return command
end

-- View-control bodies.
local view = {}
view[L.view.absolute] = function(d)
  d:line("field", L.absolute.location, 24, "Location:", d:vector64(L.absolute.location))
  d:line("field", L.absolute.orientation, 12, "Orientation:", d:vector32(L.absolute.orientation))
end
local directions = {[0] = "LEFT", "RIGHT", "UP", "DOWN", "FORWARDS", "BACKWARDS"}
view[L.view.move] = function(d)
  local turn, move = directions[d:u8(L.move.turn)], directions[d:u8(L.move.move)]
  if turn then d:line("field", L.move.turn, 1, "Turn Direction: ", turn) end
  if move then d:line("field", L.move.move, 1, "Move Direction: ", move) end
  d:line("field", L.move.position, 24, "Position:", d:vector64(L.move.position))
end
local function offsetAttach(offsetLabel)
  return function(d)
    d:name("entity", L.tether.attachId, "AttachTo:")
    d:name("text", L.tether.markingText, "AttachTo (MarkingText):")
    d:line("field", L.tether.offset, 12, offsetLabel, d:vector32(L.tether.offset))
    d:line("field", L.tether.orientation, 12, "Orientation:", d:vector32(L.tether.orientation))
  end
end
view[L.view.tether] = offsetAttach("TopoUpOffset:")
view[L.view.mimic] = offsetAttach("Offset:")
view[L.view.offsetMimic] = offsetAttach("Offset:")
local function angles(d, l, first)
  d:float32(l.radius, "Radius:")
  d:float32(l.bodyHeading, "BodyHeading:")
  d:float32(l.pitch, "pitch:")
  d:float32(l.headingOffset, "HeadingOff:")
  d:float32(l.pitchOffset, "PitchOff:")
  d:float32(l.roll, "Roll:")
end
view[L.view.compass] = function(d)
  d:name("entity", L.compass.attachId, "AttachTo:")
  d:name("text", L.compass.markingText, "AttachTo (MarkingText):")
  angles(d, L.compass)
end
view[L.view.pivot] = function(d)
  d:line("field", L.pivot.pivotPoint, 24, "Pivot point:", d:vector64(L.pivot.pivotPoint))
  angles(d, L.pivot)
end
view[L.view.orbit] = function(d)
  local l = L.orbit
  d:name("entity", l.attachId, "AttachTo:")
  d:name("text", l.markingText, "AttachTo (MarkingText):")
  d:float32(l.radius, "Radius:")
  d:float32(l.azimuthRate, "AzimuthRate:")
  d:float32(l.heading, "Heading:")
  d:float32(l.pitch, "Pitch:")
  d:float32(l.headingOffset, "HeadingOff:")
  d:float32(l.pitchOffset, "PitchOff:")
  d:float32(l.roll, "Roll:")
end
view[L.view.track] = function(d)
  d:name("entity", L.track.trackId, "TrackId:")
  d:name("text", L.track.markingText, "TrackId (MarkingText):")
  d:line("field", L.track.worldLocation, 24, "WorldLocation:", d:vector64(L.track.worldLocation))
end
local function twoEntity(d)
  local l = L.twoEntity
  d:name("entity", l.attachId, "AttachId:")
  d:name("text", l.attachMarkingText, "AttachId (MarkingText):")
  d:name("entity", l.trackId, "TrackId:")
  d:name("text", l.trackMarkingText, "TrackId (MarkingText):")
  d:line("field", l.offset, 12, "Offset:", d:vector32(l.offset))
end
view[L.view.tetherTrack] = twoEntity
view[L.view.mimicTrack] = twoEntity
-- The remove list, then the add list right behind it; entries past the PDU's end are not shown.
local function entityLists(d, l)
  local removeCount = d:i32(l.removeCount)
  local addCount = d:i32(l.addCount)
  local lists = {{"NumToRemove:", l.removeCount, removeCount, l.listStart},
                 {"NumToAdd:", l.addCount, addCount, l.listStart + L.nameWidth * math.max(removeCount, 0)}}
  for _, list in ipairs(lists) do
    local label, at, count, start = list[1], list[2], list[3], list[4]
    d:line("field", at, 4, label, tostring(count))
    local room = math.floor((d.len - start) / L.nameWidth)
    local n = math.max(0, math.min(room, math.max(count, 0)))
    for i = 0, n - 1 do d:name("entity", start + i * L.nameWidth, "") end
    if n < count then d.short = true end
  end
end
view[L.view.group] = function(d)
  local l = L.group
  d:float32(l.radialOffset, "RadOffset")
  d:float32(l.heading, "Heading:")
  d:float32(l.pitch, "Pitch:")
  d:float32(l.headingOffset, "HeadingOff:")
  d:float32(l.pitchOffset, "PitchOff:")
  local command = d:u32(l.groupCmd)
  d:line("field", l.groupCmd, 4, "GroupCmd:", (command == 0 and "Group" or "WideGroup") .. " (" .. command .. ")")
  entityLists(d, l)
end
view[L.view.modeless] = function(d)
  d:name("entity", L.modeless.primary, "Primary:")
  d:name("entity", L.modeless.secondary, "Secondary:")
  entityLists(d, L.modeless)
end
view[L.view.requestState] = function(d) end

-- Draw-control bodies: the layout is current when the mark and the current version say so, else version 0.
local function hexWord(v) return string.format("0x%08x", v) end

function D:drawHeader()
  local mark = self:fits(L.fixed.drawMark, 4) and self.tvb(L.fixed.drawMark, 4):uint() or 0
  local version = mark == L.drawMark and self:u16(L.fixed.drawVersion) or 0
  self.current = mark == L.drawMark and version == L.currentVersion
  local h = self.current and L.header or L.headerV0
  self:line("object_id", h.objectId, 4, "ObjectId", tostring(self:u32(h.objectId)))
  self.type = self:u32(h.type)
  self:line("type", h.type, 4, "Type", enum(N.drawType, self.type))
  if version ~= 0 then self:line("param_version", L.fixed.drawVersion, 2, "Param Version", tostring(version)) end
end

function D:pick(current, v0) return self.current and current or v0 end

-- Four colour bytes; o < 0: the PDU has no colour to show, and the dump shows zeros.
function D:rgba(o, labels)
  for i, label in ipairs(labels) do
    local value = o >= 0 and self:u8(o + i - 1) or 0
    self:line("field", o + i - 1, 1, label, tostring(value))
  end
end

-- colorAt: where the colour that the dump shows lies, when not in the attachable block (a line's).
function D:attachable(colorAt)
  self:drawHeader()
  local a = self:pick(L.attachable, L.attachableV0)
  self:line("field", a.attachmentType, 1, "Attachment type", enum(N.attachment, self:u8(a.attachmentType)))
  self:line("field", a.position1, 24, "pos1", self:vector64(a.position1))
  self:line("field", a.position2, 24, "pos2", self:vector64(a.position2))
  self:name("entity", a.entity1, "AttachEntityId1")
  self:name("entity", a.entity2, "AttachEntityId2")
  self:line("field", a.object1, 4, "AttachObjectId1", tostring(self:u32(a.object1)))
  self:line("field", a.object2, 4, "AttachObjectId2", tostring(self:u32(a.object2)))
  self:line("field", a.relativeLocation, 1, "RelativeLocation(percent)", tostring(self:u8(a.relativeLocation)))
  self:line("field", a.offset, 24, "Offset", self:vector64(a.offset))
  local color = a.color
  if colorAt then color = colorAt(self) end
  self:line("field", color, 4, "Color", "")
  self:rgba(color, {" r", " g", " b", " a"})
  local flashing = math.floor(self:u8(a.flags) / L.flashingBit) % 2 == 1
  self:line("field", a.flags, 1, "Flashing", flashing and "true" or "false")
end

function D:poly()
  self:attachable()
  local p = self:pick(L.poly, L.polyV0)
  local fill = math.floor(self:u8(p.flags) / L.fillBit) % 2
  self:line("field", p.flags, 1, "Fill", hexWord(fill))
  self:line("field", p.pattern, 4, "Pattern", hexWord(self:u32(p.pattern)))
  self:line("field", p.scale, 12, "Scale", self:vector32(p.scale))
  self:line("field", p.rotation, 12, "Rotation", self:vector32(p.rotation))
end

-- A trailing text: its length field, then at most that many bytes.
function D:trailing(l, label)
  local n = self:u32(l.textLength)
  local value = ""
  if n ~= 0 then value = self:text(l.text, math.min(n, 65535)) end
  self:line("text", l.text, n, label, value)
end

local draw = {}
draw[L.draw.command] = function(d)
  d:drawHeader()
  local l = d:pick(L.command, L.commandV0)
  if d.type == L.types.addToLayer or d.type == L.types.removeFromLayer then
    d:line("field", l.layerId, 4, "LayerId:", tostring(d:u32(l.layerId)))
  end
end
local function line(d)
  -- In the current layout a line's colour is its first segment's (none when it has no segment).
  d:attachable(function(self)
    if not self.current then return self:pick(L.attachable, L.attachableV0).color end
    if self:u32(L.lineTable.count) % 256 == 0 then return -1 end
    return L.lineTable.table + L.segment.color
  end)
  local table = nil
  if d.current then
    table = L.lineTable
  elseif d.type == L.types.segmented2D or d.type == L.types.segmented3D then
    table = L.segmentedLineV0Table
  end
  local count = table and d:u32(table.count) % 256 or 1
  d:line("segment", table and table.count or 0, table and 4 or 0, "Segments:", tostring(count))
  local s = L.segment
  for i = 0, count - 1 do
    -- A segment's fields: in its record, or for a version-0 plain line in the fixed fields.
    local at = function(field, plain)
      if not table then return plain end
      return table.table + i * s.size + field
    end
    local p = L.plainLineV0
    d:line("segment", at(0, p.flags), table and s.size or 0, "Segment:", tostring(i + 1))
    d:line("field", at(s.percentage, p.percentage), 1, "Percentage:", tostring(d:u8(at(s.percentage, p.percentage))))
    d:line("field", at(s.thickness, p.thickness), 4, "Thickness:", tostring(d:u32(at(s.thickness, p.thickness)) % 256))
    d:line("field", at(s.pattern, p.pattern), 4, "Pattern:", hexWord(d:u32(at(s.pattern, p.pattern))))
    local flags = d:u8(at(s.flags, p.flags))
    local arrow = flags % (s.arrowBits + 1)
    local look = math.floor(flags / s.appearanceBits) % 2 * s.appearanceBits
    d:line("field", at(s.flags, p.flags), 1, "LineArrowStyle:", enum(N.arrow, arrow))
    d:line("field", at(s.flags, p.flags), 1, "LineAppearance:", enum(N.appearance, look))
    local color = at(s.color, p.color)
    d:line("field", color, 4, "Color:", "")
    d:rgba(color, {" r:", " g:", " b:", " a:"})
  end
end
draw[L.draw.line] = line
draw[L.draw.segmentedLine] = line
draw[L.draw.poly] = function(d) d:poly() end
draw[L.draw.triangle] = function(d)
  d:poly()
  local points = d:pick(L.triangle, L.triangleV0).points
  for i = 0, L.trianglePoints - 1 do
    d:line("point", points + i * L.pointSize, L.pointSize, "Point:", tostring(i + 1))
    d:line("point", points + i * L.pointSize, L.pointSize, "location:", d:vector64(points + i * L.pointSize))
  end
end
draw[L.draw.area] = function(d)
  d:poly()
  local a = d:pick(L.area, L.areaV0)
  local count = d:u8(a.numPoints)
  for i = 0, count - 1 do
    local o = a.points + i * L.pointSize
    local value = i < L.areaPoints and d:vector64(o) or three(0, 0, 0)
    d:line("point", o, L.pointSize, "Point", tostring(i + 1))
    d:line("point", o, L.pointSize, "location", value)
  end
  d:line("text", a.textureFilename, L.textureNameWidth, "texture filename", d:text(a.textureFilename, 65535))
  d:line("text", a.textureDirectory, L.textureNameWidth, "texture directory", d:text(a.textureDirectory, 65535))
  d:line("field", a.tiles, 1, "tiling factor", tostring(d:u8(a.tiles)))
end
draw[L.draw.text] = function(d)
  d:attachable()
  d:trailing(d:pick(L.text, L.textV0), "Text:")
end
draw[L.draw.attribute] = function(d)
  d:attachable()
  local a = d:pick(L.attribute, L.attributeV0)
  d:line("field", a.groupId, 4, "Attribute group:", tostring(d:u32(a.groupId)))
  if d:u8(a.rangeFlag) ~= 0 then
    d:line("field", a.rangeMin, 16, "Range:", "")
    d:float64(a.rangeMin, " Min:")
    d:float64(a.rangeMax, " Max:")
  end
  d:trailing({textLength = a.nameLength, text = a.name}, "Name:")
end
draw[L.draw.attributeUpdate] = function(d)
  d:drawHeader()
  local a = d:pick(L.attributeUpdate, L.attributeUpdateV0)
  d:line("field", a.groupId, 4, "GroupId:", tostring(d:u32(a.groupId)))
  if d.type == L.types.valueSet then
    d:float64(a.valueX, "ValueX:")
    d:float64(a.valueY, "ValueY:")
  elseif d.type == L.types.valueSetText then
    d:trailing(a, "Text:")
  end
end
draw[L.draw.layer] = function(d)
  d:drawHeader()
  d:trailing(d:pick(L.layer, L.layerV0), "Name:")
end

-- The options PDU: its presence bitfields (the second only in PDUs long enough to hold it).
view[L.view.options] = function(d)
  local function bits(o, label)
    local bytes = {}
    for i = 0, L.options.width - 1 do bytes[#bytes + 1] = string.format("%02x", d:u8(o + i)) end
    d:line("options_bitfield", o, L.options.width, label, table.concat(bytes, " "))
  end
  bits(L.options.bitfield, "Options Bitfield:")
  local second = d.len > L.options.bitfield2
  if second then bits(L.options.bitfield2, "Options Bitfield2:") end
  local perField = L.options.width * 8
  for _, row in ipairs(L.optionRows) do
    -- The presence bit: options below perField in the first bitfield, the rest in the second.
    local field, bit = L.options.bitfield, row.option
    if bit >= perField then field, bit = L.options.bitfield2, bit - perField end
    local present = (bit < perField) and (field == L.options.bitfield or second) and
                    math.floor(d:u8(field + math.floor(bit / 8)) / 2 ^ (bit % 8)) % 2 == 1
    if present then
      local o, k = row.offset, row.kind
      if k == "overlay" then
        d:line("field", o, 4, row.label, enum(N.overlay, d:u32(o)))
      elseif k == "smoothing" then
        d:line("field", o, 4, row.label, enum(N.smoothing, d:u32(o)))
      elseif k == "f64" then
        d:float64(o, row.label)
      elseif k == "f32" then
        d:float32(o, row.label)
      elseif k == "u32" then
        d:line("field", o, 4, row.label, tostring(d:u32(o)))
      elseif k == "u16" then
        d:line("field", o, 2, row.label, tostring(d:u16(o)))
      elseif k == "flag" then
        d:line("field", o, 1, row.label, d:u8(o) ~= 0 and "true" or "false")
      elseif k == "text" then
        d:line("text", o, row.width, row.label, d:text(o, row.width))
      elseif k == "action" then
        d.tree:add(F.field, d:range(field + math.floor(bit / 8), 1), row.label):set_text(row.label)
      else
        local value = d:u8(o)
        local names = k == "videoCapture" and N.videoCapture or N.feature
        local text = row.label .. (names[value] or tostring(value))
        d.tree:add(F.field, d:range(o, 1), text):set_text(text)
      end
    end
  end
end

-- Whether a datagram holds one control PDU: the kind, and a length field that fits the datagram.
local function isControlPdu(tvb)
  return tvb:len() >= 12 and tvb(2, 1):uint() == 202
end

local function dissect(tvb, pinfo, root)
  local stated = tvb(8, 2):uint()
  local len = math.min(stated, tvb:len())
  pinfo.cols.protocol = "VISTRAL"
  local tree = root:add(proto, tvb(0, len))
  local d = new(tvb(0, len):tvb(), tree)
  if stated ~= tvb:len() then d.short = true end
  local command = d:fixed()
  -- A view command, or the status form of one that has it, else a draw command.
  local body = view[command]
  local base = command - L.statusOffset
  if body == nil and L.statusForm[base] then body = view[base] end
  if body == nil then body = draw[command] end
  if body then body(d) end
  pinfo.cols.info = (N.command[command] or "UnknownEnum") .. " (" .. command .. ")"
  if d.short then tree:add_proto_expert_info(E.short) end
  return tvb:len()
end

-- What the port held before: the DIS dissector, which gets every other PDU kind.
local previous = nil

function proto.dissector(tvb, pinfo, root)
  if not isControlPdu(tvb) then
    if previous then return previous:call(tvb, pinfo, root) end
    return 0
  end
  return dissect(tvb, pinfo, root)
end

-- Every other UDP port: a datagram is taken when it looks like a control PDU.
local function heuristic(tvb, pinfo, root)
  if not isControlPdu(tvb) or tvb(8, 2):uint() ~= tvb:len() then return false end
  dissect(tvb, pinfo, root)
  return true
end
proto:register_heuristic("udp", heuristic)

-- The port DIS traffic uses: control PDUs here, every other PDU kind to the DIS dissector as before.
local registered = 0
function proto.init()
  local udp = DissectorTable.get("udp.port")
  if registered ~= 0 then udp:remove(registered, proto) end
  previous = udp:get_dissector(prefs.port)
  udp:add(prefs.port, proto)
  registered = prefs.port
end
