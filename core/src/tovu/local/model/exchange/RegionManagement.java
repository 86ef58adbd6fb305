package tovu.local.model.exchange;

import hla.rti1516e.exceptions.AttributeNotDefined;
import hla.rti1516e.exceptions.AttributeNotPublished;
import hla.rti1516e.exceptions.InvalidDimensionHandle;
import hla.rti1516e.exceptions.InvalidRangeBound;
import hla.rti1516e.exceptions.InvalidRegion;
import hla.rti1516e.exceptions.InvalidRegionContext;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RegionDoesNotContainSpecifiedDimension;
import hla.rti1516e.exceptions.RegionInUseForUpdateOrSubscription;
import hla.rti1516e.exceptions.RegionNotCreatedByThisFederate;
import java.util.Arrays;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.fom.Attribute;
import tovu.local.fom.Dimension;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Saved;
import tovu.local.model.value.Timing;

/** Data distribution management: regions, and the services that take them. */
@SuppressWarnings("serial") // read by what wrote it
public final class RegionManagement implements Saved {
    /**
     * Some attributes and the regions that go with them.
     *
     * @param attributes the attributes' handles
     * @param regions    the regions' handles
     */
    public record Pair(int[] attributes, int[] regions) {
    }

    private final Exchange federation;
    private final Map<Integer, Region> regions = new HashMap<>();

    RegionManagement(Exchange federation) {
        this.federation = federation;
    }

    public int create(Federate federate, int[] dimensions) throws InvalidDimensionHandle {
        Set<Dimension> chosen = new LinkedHashSet<>();
        for (int handle : dimensions) {
            Dimension dimension = federation.objectModel().dimension(handle);
            if (dimension == null) {
                throw new InvalidDimensionHandle("No dimension has handle " + handle
                        + "; get the handle with getDimensionHandle");
            }
            chosen.add(dimension);
        }
        if (chosen.isEmpty()) {
            throw new InvalidDimensionHandle(
                    "A region needs at least one dimension; give the handles of its dimensions");
        }
        Region region = new Region(RuntimeHandles.next(), federate, chosen);
        regions.put(region.handle, region);
        return region.handle;
    }

    boolean has(Region region) {
        return regions.get(region.handle) == region;
    }

    private Region region(int handle) throws InvalidRegion {
        Region region = regions.get(handle);
        if (region == null) {
            throw new InvalidRegion("This federation has no region with handle " + handle
                    + "; create it, or use one not deleted");
        }
        return region;
    }

    private Region own(Federate federate, int handle) throws InvalidRegion, RegionNotCreatedByThisFederate {
        return own(federate, new int[] {handle}).iterator().next();
    }

    private Set<Region> own(Federate federate, int[] handles) throws InvalidRegion, RegionNotCreatedByThisFederate {
        Set<Region> set = new LinkedHashSet<>();
        for (int handle : handles) {
            set.add(region(handle));
        }
        for (Region region : set) {
            if (region.creator != federate) {
                throw new RegionNotCreatedByThisFederate("The region with handle " + region.handle
                        + " was created by " + region.creator + ", and only that may use it");
            }
        }
        return set;
    }

    private static void requireContext(Set<Region> set, Set<Dimension> available, String what)
            throws InvalidRegionContext {
        for (Region region : set) {
            if (!available.containsAll(region.dimensions())) {
                throw new InvalidRegionContext("The region with handle " + region.handle
                        + " has dimensions that are not available for " + what + "; use a region without them");
            }
        }
    }

    public void commit(Federate federate, int[] handles) throws RTIexception {
        Set<ObjectInstance> moved = new LinkedHashSet<>();
        Set<ObjectInstance> metOrLeft = new LinkedHashSet<>();
        for (Region region : own(federate, handles)) {
            Set<InstanceAttribute> differing = metBySubscriptions(region);
            region.commit();
            for (InstanceAttribute each : metBySubscriptions(region)) {
                if (!differing.remove(each)) {
                    differing.add(each);
                }
            }
            differing.forEach(each -> metOrLeft.add(each.object));
            region.sentWith().forEach(attribute -> moved.add(attribute.object));
        }
        federate.invalidateMessages();
        moved.forEach(federation.visibility()::objectChanged);
        metOrLeft.forEach(each -> federation.visibility().subscriptionChanged(federate, each));
    }

    /** What others send with regions that subscriptions with that region let its creator see. */
    private Set<InstanceAttribute> metBySubscriptions(Region region) {
        Set<InstanceAttribute> met = new LinkedHashSet<>();
        if (region.isSubscribed()) {
            for (Region each : regions.values()) {
                if (each.creator != region.creator) {
                    Map<Attribute, Boolean> overlap = new HashMap<>(); // the same for very many instances
                    for (InstanceAttribute sent : each.sentWith()) {
                        if (overlap.computeIfAbsent(sent.definition,
                                key -> each.overlaps(region, key.dimensions()))) {
                            met.add(sent);
                        }
                    }
                }
            }
        }
        return met;
    }

    public void delete(Federate federate, int handle) throws RTIexception {
        Region region = own(federate, handle);
        if (region.isInUse()) {
            throw new RegionInUseForUpdateOrSubscription("The region with handle " + handle
                    + " is used for updates or subscriptions; end their use first");
        }
        regions.remove(handle);
    }

    void resigned(Federate federate) {
        regions.values().removeIf(each -> each.creator == federate);
    }

    public int[] dimensions(int handle) throws InvalidRegion {
        return region(handle).dimensions().stream().mapToInt(Dimension::handle).toArray();
    }

    private Dimension dimension(Region region, int handle) throws RegionDoesNotContainSpecifiedDimension {
        Dimension dimension = federation.objectModel().dimension(handle);
        if (dimension == null || !region.dimensions().contains(dimension)) {
            throw new RegionDoesNotContainSpecifiedDimension("The region with handle " + region.handle
                    + " does not have the dimension with handle " + handle);
        }
        return dimension;
    }

    /** The lower and the upper bound. */
    public long[] bounds(Federate federate, int handle, int dimension) throws RTIexception {
        Region region = region(handle);
        return region.bounds(dimension(region, dimension), federate);
    }

    public void setBounds(Federate federate, int handle, int dimensionHandle, long lower, long upper)
            throws RTIexception {
        Region region = own(federate, handle);
        Dimension dimension = dimension(region, dimensionHandle);
        if (lower < 0 || lower >= upper || upper > dimension.upperBound()) {
            throw new InvalidRangeBound("The range from " + lower + " to " + upper + " does not fit dimension '"
                    + dimension.name() + "'; give a lower bound below the upper one, and an upper bound of at most "
                    + dimension.upperBound());
        }
        region.draft(dimension, lower, upper);
    }

    /** All attributes that pairs name, which have to be attributes of the class. */
    private static Set<Integer> attributes(ObjectClass theClass, List<Pair> pairs) throws AttributeNotDefined {
        return Lookup.attributes(theClass, pairs.stream().flatMapToInt(pair -> Arrays.stream(pair.attributes()))
                .toArray());
    }

    /** The regions that pairs name for each attribute of a class. */
    private Map<Integer, Set<Region>> byAttribute(Federate federate, ObjectClass theClass, List<Pair> pairs)
            throws RTIexception {
        attributes(theClass, pairs);
        own(federate, pairs.stream().flatMapToInt(pair -> Arrays.stream(pair.regions())).toArray());
        Map<Integer, Set<Region>> byAttribute = new LinkedHashMap<>();
        for (Pair pair : pairs) {
            Set<Region> set = own(federate, pair.regions());
            for (int attribute : Lookup.attributes(theClass, pair.attributes())) {
                byAttribute.computeIfAbsent(attribute, key -> new LinkedHashSet<>()).addAll(set);
            }
        }
        return byAttribute;
    }

    private Map<Integer, Set<Region>> inContext(ObjectClass theClass, Map<Integer, Set<Region>> byAttribute)
            throws InvalidRegionContext {
        for (Map.Entry<Integer, Set<Region>> each : byAttribute.entrySet()) {
            requireContext(each.getValue(), theClass.member(each.getKey()).dimensions(),
                    "attribute '" + theClass.member(each.getKey()).name() + "'");
        }
        return byAttribute;
    }

    /** @param name null for a name of the federation's choice */
    public int register(Federate federate, int classHandle, List<Pair> pairs, String name) throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        Set<Integer> attributes = attributes(theClass, pairs);
        ObjectManagement.requirePublished(federate, theClass);
        for (int attribute : attributes) {
            if (!federate.publications.publishes(theClass, attribute)) {
                throw new AttributeNotPublished(federate + " does not publish attribute '"
                        + theClass.member(attribute).name() + "' of class '" + theClass.name() + "'; publish it first");
            }
        }
        return federation.objectManagement().register(federate, theClass, name,
                inContext(theClass, byAttribute(federate, theClass, pairs)));
    }

    public void associate(Federate federate, int objectHandle, List<Pair> pairs) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, objectHandle);
        inContext(knowledge.knownClass, byAttribute(federate, knowledge.knownClass, pairs)).forEach((handle, set) -> {
            InstanceAttribute attribute = knowledge.object.attribute(handle);
            Set<Region> all = new LinkedHashSet<>(attribute.associationsOf(federate));
            all.addAll(set);
            attribute.associate(federate, all);
        });
        federation.visibility().objectChanged(knowledge.object);
    }

    public void unassociate(Federate federate, int objectHandle, List<Pair> pairs) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, objectHandle);
        byAttribute(federate, knowledge.knownClass, pairs).forEach((handle, set) -> {
            InstanceAttribute attribute = knowledge.object.attribute(handle);
            Set<Region> left = new LinkedHashSet<>(attribute.associationsOf(federate));
            left.removeAll(set);
            attribute.associate(federate, left);
        });
        federation.visibility().objectChanged(knowledge.object);
    }

    public void subscribe(Federate federate, int classHandle, List<Pair> pairs, boolean active, String updateRate)
            throws RTIexception {
        federation.lookup().updateRate(updateRate);
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        Map<Integer, Set<Region>> where = inContext(theClass, byAttribute(federate, theClass, pairs));
        where.values().removeIf(Set::isEmpty);
        federation.declarations().subscribe(federate, theClass, where, new Interest.Terms(active, updateRate));
    }

    public void unsubscribe(Federate federate, int classHandle, List<Pair> pairs) throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        federation.declarations().unsubscribe(federate, theClass, byAttribute(federate, theClass, pairs));
    }

    public void subscribeInteraction(Federate federate, int classHandle, boolean active, int[] handles)
            throws RTIexception {
        InteractionClass theClass = federation.lookup().interactionClass(classHandle);
        Set<Region> where = inContext(theClass, own(federate, handles));
        if (!where.isEmpty()) {
            federation.declarations().subscribe(federate, theClass, where, active);
        }
    }

    public void unsubscribeInteraction(Federate federate, int classHandle, int[] handles) throws RTIexception {
        InteractionClass theClass = federation.lookup().interactionClass(classHandle);
        federation.declarations().unsubscribe(federate, theClass, own(federate, handles));
    }

    private static Set<Region> inContext(InteractionClass theClass, Set<Region> set) throws InvalidRegionContext {
        requireContext(set, theClass.dimensions(), "interaction class '" + theClass.name() + "'");
        return set;
    }

    public int send(Federate federate, int classHandle, HandleValues values, int[] handles, byte[] tag, Timing timing)
            throws RTIexception {
        InteractionClass theClass = federation.lookup().interactionClass(classHandle);
        Lookup.requireParameters(theClass, values);
        InteractionManagement.requirePublished(federate, theClass);
        Set<Region> set = inContext(theClass, own(federate, handles));
        return federation.interactions().send(federate, theClass, values, set, tag, timing);
    }

    public void requestUpdate(Federate federate, int classHandle, List<Pair> pairs, byte[] tag) throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        Map<Integer, Set<Region>> where = inContext(theClass, byAttribute(federate, theClass, pairs));
        federation.objectManagement().requestClassUpdate(federate, theClass, where, tag);
    }
}
